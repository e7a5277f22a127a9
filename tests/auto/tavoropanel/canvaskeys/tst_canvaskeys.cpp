// Layers are selected, moved, resized and changed with the keyboard.
#include <support/tavoropanel/canvasbench.h>

#include <QAction>
#include <QLineEdit>

#include <map>

using namespace Tavoro;
using namespace Tavoro::Panel;

Q_DECLARE_METATYPE(ActionId)
Q_DECLARE_METATYPE(Qt::Key)
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

class tst_CanvasKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void tabSelectsTheLayersOfTheScreenFromTheTop();
    void tabLeavesTheCanvasAfterTheLastLayer();
    void arrowsMoveTheLayer_data();
    void arrowsMoveTheLayer();
    void arrowsAddUpWhileTheDeviceIsSlow();
    void seriesOfArrowsIsOneStepOfUndo();
    void arrowsSelectSceneAndScreenWithoutALayer();
    void arrowsDoNotMoveABackground();
    void escapeDeselects();
    void plusAndMinusZoom();
    void enlargedCanvasScrollsToTheLayer();
    void orderChanges_data();
    void orderChanges();
    void opacityChanges();
    void opacityStaysWithinItsRange();

private:
    CanvasBench &bench() { return *m_bench; }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&bench().view, key, modifiers);
    }
    void trigger(ActionId id) { bench().actions.action(id).trigger(); }
    int selectedNumber()
    {
        return bench().selection.layer() ? bench().selection.layer()->layerId : -1;
    }
    /// The numbers of the layers that the device holds, the bottom layer first.
    QList<int> order();

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasKeys::init()
{
    m_bench = std::make_unique<CanvasBench>();
    QVERIFY(m_bench->openSelected());
    QTRY_COMPARE(m_bench->shown(2), QRect(1280, 0, 1280, 1080));
    m_bench->view.setFocus();
}

QList<int> tst_CanvasKeys::order()
{
    std::map<int, int> positions;
    for (quint8 number = 0; number < 4; ++number)
        positions[bench().held(number).zorder] = number;
    QList<int> numbers;
    for (const auto &[position, number] : positions)
        numbers << number;
    return numbers;
}

void tst_CanvasKeys::tabSelectsTheLayersOfTheScreenFromTheTop()
{
    QList<int> numbers;
    for (int step = 0; step < 4; ++step) {
        press(Qt::Key_Tab);
        numbers << selectedNumber();
    }
    QCOMPARE(numbers, (QList<int>{3, 2, 1, 0}));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(selectedNumber(), 1);
}

void tst_CanvasKeys::tabLeavesTheCanvasAfterTheLastLayer()
{
    QWidget window;
    QLineEdit edit(&window);
    bench().view.setParent(&window);
    window.show();
    QWidget::setTabOrder(&bench().view, &edit);
    window.activateWindow();
    bench().view.show();
    bench().view.setFocus();
    QTRY_VERIFY(bench().view.hasFocus());
    bench().selection.setLayer(CanvasBench::id(0));
    press(Qt::Key_Tab);
    QVERIFY(edit.hasFocus());
    bench().view.setParent(nullptr);
}

void tst_CanvasKeys::arrowsMoveTheLayer_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QRect>("expected");

    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    // clang-format off
    QTest::newRow("left")                 << Qt::Key_Left  << none              << QRect(1279, 0, 1280, 1080);
    QTest::newRow("right")                << Qt::Key_Right << none              << QRect(1281, 0, 1280, 1080);
    QTest::newRow("up")                   << Qt::Key_Up    << none              << QRect(1280, -1, 1280, 1080);
    QTest::newRow("down")                 << Qt::Key_Down  << none              << QRect(1280, 1, 1280, 1080);
    QTest::newRow("shift and right")      << Qt::Key_Right << shift             << QRect(1290, 0, 1280, 1080);
    QTest::newRow("control and left")     << Qt::Key_Left  << control           << QRect(1280, 0, 1279, 1080);
    QTest::newRow("control and down")     << Qt::Key_Down  << control           << QRect(1280, 0, 1280, 1081);
    QTest::newRow("control, shift, down") << Qt::Key_Down  << (control | shift) << QRect(1280, 0, 1280, 1090);
    // clang-format on
}

void tst_CanvasKeys::arrowsMoveTheLayer()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const QRect, expected);
    bench().selection.setLayer(CanvasBench::id(2));
    press(key, modifiers);
    QCOMPARE(bench().shown(2), expected);
    QTRY_COMPARE(bench().heldWindow(2), expected);
}

void tst_CanvasKeys::arrowsAddUpWhileTheDeviceIsSlow()
{
    QVERIFY(bench().addFault("late=100,code=0x1405"));
    bench().selection.setLayer(CanvasBench::id(2));
    for (int step = 0; step < 12; ++step)
        press(Qt::Key_Right);
    QCOMPARE(bench().shown(2).x(), 1292);
    QTRY_COMPARE(bench().heldWindow(2), QRect(1292, 0, 1280, 1080));
    QTRY_COMPARE(bench().item(2).face().window.x(), 1292);
    QCOMPARE(bench().shown(2).x(), 1292);
}

void tst_CanvasKeys::seriesOfArrowsIsOneStepOfUndo()
{
    bench().selection.setLayer(CanvasBench::id(2));
    for (int step = 0; step < 5; ++step)
        press(Qt::Key_Down);
    // Another selection ends the series at once, a pause later.
    bench().selection.setLayer(CanvasBench::id(1));
    QTRY_COMPARE(bench().changes.steps().count(), 1);
    bench().changes.undo();
    QTRY_COMPARE(bench().heldWindow(2), QRect(1280, 0, 1280, 1080));
    QTRY_COMPARE(bench().shown(2), QRect(1280, 0, 1280, 1080));
}

void tst_CanvasKeys::arrowsSelectSceneAndScreenWithoutALayer()
{
    press(Qt::Key_Right);
    QCOMPARE(bench().selection.scene(), Scene::Programme);
    press(Qt::Key_Left);
    QCOMPARE(bench().selection.scene(), Scene::Preview);
    press(Qt::Key_Down);
    QVERIFY(bench().selection.contains({2, 2}));
    press(Qt::Key_Down);
    QVERIFY(bench().selection.contains({2, 2}));
    press(Qt::Key_Up);
    QVERIFY(bench().selection.contains({1, 1}));
}

void tst_CanvasKeys::arrowsDoNotMoveABackground()
{
    bench().selection.setLayer(CanvasBench::id(0));
    press(Qt::Key_Right);
    QCOMPARE(bench().shown(0), QRect(0, 0, 3840, 1080));
    QVERIFY(bench().selection.layer());
}

void tst_CanvasKeys::escapeDeselects()
{
    bench().selection.setLayer(CanvasBench::id(2));
    press(Qt::Key_Escape);
    QVERIFY(!bench().selection.layer());
}

void tst_CanvasKeys::plusAndMinusZoom()
{
    const double fitted = bench().view.scale();
    press(Qt::Key_Plus);
    QCOMPARE(bench().view.scale(), fitted * 1.25);
    QVERIFY(!bench().view.isFitted());
    press(Qt::Key_Minus);
    QCOMPARE(bench().view.scale(), fitted);
    trigger(ActionId::ZoomFit);
    QVERIFY(bench().view.isFitted());
    QCOMPARE(bench().view.scale(), fitted);
}

void tst_CanvasKeys::enlargedCanvasScrollsToTheLayer()
{
    const auto isVisible = [this](quint8 number) {
        const QPointF centre = bench().item(number).sceneBoundingRect().center();
        return bench().view.viewport()->rect().contains(bench().view.mapFromScene(centre));
    };
    while (bench().view.scale() < 0.5)
        bench().view.zoomIn();
    bench().view.centerOn(&bench().item(1));
    QVERIFY(!isVisible(3));
    press(Qt::Key_Tab);
    QCOMPARE(selectedNumber(), 3);
    QVERIFY(isVisible(3));

    bench().view.centerOn(bench().view.canvas().sceneRect().topLeft());
    QVERIFY(!isVisible(3));
    press(Qt::Key_Left);
    QVERIFY(isVisible(3));
}

void tst_CanvasKeys::orderChanges_data()
{
    QTest::addColumn<ActionId>("action");
    QTest::addColumn<quint8>("number");
    QTest::addColumn<QList<int>>("expected");

    // clang-format off
    QTest::newRow("raise")                       << ActionId::RaiseLayer         << quint8(1) << QList<int>{0, 2, 1, 3};
    QTest::newRow("lower")                       << ActionId::LowerLayer         << quint8(3) << QList<int>{0, 1, 3, 2};
    QTest::newRow("to the top")                  << ActionId::RaiseToTop    << quint8(1) << QList<int>{0, 2, 3, 1};
    QTest::newRow("to the bottom")               << ActionId::LowerToBottom << quint8(3) << QList<int>{0, 3, 1, 2};
    QTest::newRow("not below the background")    << ActionId::LowerLayer         << quint8(1) << QList<int>{0, 1, 2, 3};
    QTest::newRow("a background stays")          << ActionId::RaiseLayer         << quint8(0) << QList<int>{0, 1, 2, 3};
    // clang-format on
}

void tst_CanvasKeys::orderChanges()
{
    QFETCH(const ActionId, action);
    QFETCH(const quint8, number);
    QFETCH(const QList<int>, expected);
    bench().selection.setLayer(CanvasBench::id(number));
    trigger(action);
    QTRY_COMPARE(order(), expected);
    const auto shownOrder = [&] {
        QList<int> numbers;
        const auto layers = bench().view.canvas().screens().first()->layers();
        for (const LayerItem *const layer : layers)
            numbers << layer->id().layerId;
        return numbers;
    };
    QTRY_COMPARE(shownOrder(), expected);
    QCOMPARE(selectedNumber(), int(number));
    QVERIFY(bench().view.canvas().selectedLayer());
}

void tst_CanvasKeys::opacityChanges()
{
    bench().selection.setLayer(CanvasBench::id(2));
    for (int step = 0; step < 4; ++step)
        trigger(ActionId::LessOpaque);
    trigger(ActionId::MoreOpaque);
    QCOMPARE(bench().item(2).opacityPercent(), 85);
    QTRY_COMPARE(bench().held(2).opacity, 85);
    QTRY_COMPARE(bench().item(2).face().opacity, 85);
}

void tst_CanvasKeys::opacityStaysWithinItsRange()
{
    bench().selection.setLayer(CanvasBench::id(2));
    trigger(ActionId::MoreOpaque);
    QCOMPARE(bench().item(2).opacityPercent(), 100);
    for (int step = 0; step < 25; ++step)
        trigger(ActionId::LessOpaque);
    QCOMPARE(bench().item(2).opacityPercent(), 0);
    QTRY_COMPARE(bench().held(2).opacity, 0);
    QCOMPARE(bench().complaints(), QStringList());
}

QTEST_MAIN(tst_CanvasKeys)
#include "tst_canvaskeys.moc"
