// The canvas follows changes of the device without losing items or selection.
#include <support/tavoropanel/canvasbench.h>

#include <tavoropanel/canvas/selectionframe.h>

#include <tavorocontrol/screen.h>

#include <QPointer>
#include <QSignalSpy>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_CanvasFollows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void takeSwapsTheScenes();
    void readingAgainKeepsSelectionAndItems();
    void foreignMoveIsShownWithoutLosingTheSelection();
    void newScreenAppears();
    void otherDeviceReplacesTheScreens();
    void screensKeepTheLayoutOfTheDevice();

private:
    CanvasBench &bench() { return *m_bench; }
    ScreenItem &screen(int index) { return *bench().view.canvas().screens().at(index); }

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasFollows::init()
{
    m_bench = std::make_unique<CanvasBench>();
    QVERIFY(m_bench->openSelected());
    QTRY_COMPARE(m_bench->view.canvas().screens().size(), 4);
}

void tst_CanvasFollows::takeSwapsTheScenes()
{
    const QString preview = screen(0).layers().last()->face().source;
    const QString programme = screen(2).layers().last()->face().source;
    QVERIFY(preview != programme);
    ProtoModel::Screen::s_SwitchEffect effect;
    effect.screenId = 1;
    effect.screenType = 1;
    QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeTake, {effect})));
    QTRY_COMPARE(screen(2).layers().last()->face().source, preview);
    QTRY_COMPARE(screen(0).layers().last()->face().source, programme);
}

void tst_CanvasFollows::readingAgainKeepsSelectionAndItems()
{
    bench().selection.setLayer(CanvasBench::id(2));
    const QPointer<LayerItem> item = &bench().item(2);
    const QPointer<ScreenItem> main = &screen(0);
    QSignalSpy states(bench().wall, &DeviceSession::stateChanged);
    bench().wall->readAgain();
    QTRY_VERIFY(states.count() >= 2 && bench().wall->isReady());
    QVERIFY(item);
    QVERIFY(main);
    QVERIFY(bench().selection.layer());
    QCOMPARE(bench().view.canvas().selectedLayer(), item.data());
    QVERIFY(bench().view.canvas().frame().isVisible());
}

void tst_CanvasFollows::foreignMoveIsShownWithoutLosingTheSelection()
{
    bench().selection.setLayer(CanvasBench::id(2));
    const QPointer<LayerItem> item = &bench().item(2);
    const ProtoModel::Layer::s_LayerWindow window{CanvasBench::id(2), {100, 200, 321, 123}};
    QVERIFY(resultOf(bench().wall->call(&Control::Layer::writeWindow, {window})));
    QTRY_COMPARE(bench().shown(2), QRect(100, 200, 321, 123));
    QCOMPARE(item->pos(), QPointF(100, 200));
    QCOMPARE(item->boundingRect(), QRectF(0, 0, 321, 123));
    QCOMPARE(bench().view.canvas().selectedLayer(), item.data());
    QCOMPARE(bench().view.canvas().frame().layer(), item.data());
}

void tst_CanvasFollows::newScreenAppears()
{
    ProtoModel::Screen::s_Enable enable;
    enable.screenId = 9;
    enable.screenType = 1;
    enable.general.name = "Side";
    QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeScreenEnable, {enable})));
    QTRY_COMPARE(bench().view.canvas().screens().size(), 6);
    QTRY_VERIFY(screen(1).name() == QStringLiteral("Side")
                || screen(2).name() == QStringLiteral("Side"));
}

void tst_CanvasFollows::otherDeviceReplacesTheScreens()
{
    bench().selection.setDevice(nullptr);
    QCOMPARE(bench().view.canvas().screens().size(), 0);
    bench().selection.setDevice(bench().wall);
    QCOMPARE(bench().view.canvas().screens().size(), 4);
    QCOMPARE(screen(0).layers().size(), 4);
}

void tst_CanvasFollows::screensKeepTheLayoutOfTheDevice()
{
    // The layout of the simulated device has all screens at 0, 0.
    QVERIFY(screen(1).y() > screen(0).y());
    ProtoModel::Screen::s_Layout layout;
    layout.screenId = 1;
    layout.screenType = 1;
    layout.layout = {5000, 0};
    QVERIFY(resultOf(bench().wall->call(&Control::Screen::writeLayout, {layout})));
    QTRY_VERIFY(screen(0).x() > screen(1).x());
    QCOMPARE(screen(0).y(), screen(1).y());
}

QTEST_MAIN(tst_CanvasFollows)
#include "tst_canvasfollows.moc"
