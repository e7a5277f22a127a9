// The T-bar, operated with mouse and keyboard, and what the device then holds.
#include <support/tavoropanel/windowbench.h>
#include <support/tavorosession/devicelog.h>

#include <tavorocontrol/screen.h>
#include <tavoropanel/live/tbar.h>

#include <QSignalSpy>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

constexpr quint16 tBarCode = 0x130D;

} // namespace

class tst_PanelTBar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<WindowBench>();
        QVERIFY(m_bench->openSelected());
    }
    void cleanup() { m_bench.reset(); }

    void tBarIsDraggedToTheTake();
    void tBarIsMovedByKeys();
    void tBarFollowsTheDevice();

private:
    TBar &tBar() { return *m_bench->window->findChild<TBar *>(); }

    std::unique_ptr<WindowBench> m_bench;
};

void tst_PanelTBar::tBarIsDraggedToTheTake()
{
    DeviceLog log;
    TBar &bar = tBar();
    QSignalSpy moved(&bar, &TBar::moved);
    const int middle = (bar.height() + bar.fontMetrics().lineSpacing()) / 2;
    WindowBench::drag(bar, {16, middle}, {bar.width(), middle});
    QVERIFY(moved.count() >= 3);
    QCOMPARE(moved.at(moved.count() - 2).first().toInt(), 100);
    QCOMPARE(bar.value(), 0);

    const auto body = [](int percent) {
        return QStringLiteral(R"([{"screenId":1,"screenType":1,"tbar":{"percent":%1}}])")
            .arg(percent);
    };
    QTRY_COMPARE(log.writes(tBarCode).value(log.writes(tBarCode).size() - 1), body(0));
    QCOMPARE(log.writes(tBarCode).count(body(100)), 1);
}

void tst_PanelTBar::tBarIsMovedByKeys()
{
    tBar().setFocus();
    QTest::keyClick(&tBar(), Qt::Key_Right);
    QTest::keyClick(&tBar(), Qt::Key_PageUp);
    QCOMPARE(tBar().value(), 12);
    QTRY_COMPARE(m_bench->screen(1, 1).tbar.percent, 12);
}

void tst_PanelTBar::tBarFollowsTheDevice()
{
    ProtoModel::Screen::s_TBar bar;
    bar.screenId = 1;
    bar.screenType = 1;
    bar.tbar.percent = 40;
    QVERIFY(resultOf(m_bench->wall->call(&Control::Screen::writeTBar, {bar})));
    QTRY_COMPARE(tBar().value(), 40);
}

QTEST_MAIN(tst_PanelTBar)
#include "tst_paneltbar.moc"
