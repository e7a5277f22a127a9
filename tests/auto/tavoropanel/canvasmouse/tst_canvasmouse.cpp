// Layers are selected, moved and resized with the mouse, and the device follows.
#include <support/tavoropanel/canvasbench.h>
#include <support/tavorosession/devicelog.h>

#include <QUndoStack>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_CanvasMouse : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void clickSelectsTheTopmostLayer();
    void clickDoesNotMove();
    void clickOnATitleSelectsTheScreen();
    void controlClickAddsAScreen();
    void draggedLayerIsHeldByTheDevice();
    void deviceFollowsDuringTheDrag();
    void oneWriteIsUnderWayAndTheLastOneArrives();
    void dragIsOneStepOfUndo();
    void layerSnapsToTheEdgeOfTheScreen();
    void layerSnapsToAnotherLayer();
    void controlKeySuspendsSnapping();
    void shiftKeyKeepsADirection();
    void handleResizes_data();
    void handleResizes();
    void backgroundStays();
    void escapeReturnsTheLayer();
    void layerMovesAtTwiceTheScale();
    void dragOutsideTheScreensPans();

private:
    CanvasBench &bench() { return *m_bench; }
    /// Moves layer 2 away from all lines.
    void placeFreely();

    std::unique_ptr<CanvasBench> m_bench;
};

void tst_CanvasMouse::init()
{
    m_bench = std::make_unique<CanvasBench>();
    QVERIFY(m_bench->openSelected());
    placeFreely();
}

void tst_CanvasMouse::placeFreely()
{
    const ProtoModel::Layer::s_LayerWindow window{CanvasBench::id(2), {1400, 300, 800, 450}};
    QVERIFY(resultOf(bench().wall->call(&Control::Layer::writeWindow, {window})));
    QTRY_COMPARE(bench().shown(2), QRect(1400, 300, 800, 450));
}

void tst_CanvasMouse::clickSelectsTheTopmostLayer()
{
    QTest::mouseClick(bench().view.viewport(), Qt::LeftButton, {}, bench().pointOf(2));
    QVERIFY(bench().selection.layer());
    QVERIFY(isSame(*bench().selection.layer(), CanvasBench::id(2)));
    QTest::mouseClick(bench().view.viewport(), Qt::LeftButton, {}, bench().pointOf(1));
    QVERIFY(isSame(*bench().selection.layer(), CanvasBench::id(1)));
}

void tst_CanvasMouse::clickDoesNotMove()
{
    DeviceLog log;
    const QPoint point = bench().pointOf(2);
    bench().drag(point, point + QPoint(2, 1));
    QCOMPARE(bench().shown(2), QRect(1400, 300, 800, 450));
    QCOMPARE(bench().heldWindow(2), QRect(1400, 300, 800, 450));
    QCOMPARE(log.writes(0x1405), QStringList());
}

void tst_CanvasMouse::clickOnATitleSelectsTheScreen()
{
    const ScreenItem *const blend = bench().view.canvas().screens().at(1);
    const QPointF title(blend->pos().x() + 50, blend->pos().y() - 30);
    QTest::mouseClick(bench().view.viewport(), Qt::LeftButton, {},
                      bench().view.mapFromScene(title));
    QCOMPARE(bench().selection.screens().size(), 1);
    QVERIFY(bench().selection.contains({2, 2}));
}

void tst_CanvasMouse::controlClickAddsAScreen()
{
    const ScreenItem *const blend = bench().view.canvas().screens().at(3);
    const QPointF title(blend->pos().x() + 50, blend->pos().y() - 30);
    QTest::mouseClick(bench().view.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      bench().view.mapFromScene(title));
    QVERIFY(bench().selection.contains({1, 1}));
    QVERIFY(bench().selection.contains({2, 2}));
    QCOMPARE(bench().selection.scene(), Scene::Programme);
}

void tst_CanvasMouse::draggedLayerIsHeldByTheDevice()
{
    const QPoint from = bench().pointOf(2);
    const QPoint to = from + QPoint(-23, 9);
    const QRect expected = QRect(1400, 300, 800, 450).translated(bench().inScreen(from, to));
    bench().drag(from, to, Qt::ControlModifier);
    QCOMPARE(bench().shown(2), expected);
    QTRY_COMPARE(bench().heldWindow(2), expected);
    QTRY_COMPARE(bench().item(2).face().window, expected);
    QCOMPARE(bench().complaints(), QStringList());
}

void tst_CanvasMouse::deviceFollowsDuringTheDrag()
{
    const QPoint from = bench().pointOf(2);
    const QRect start(1400, 300, 800, 450);
    bench().press(from);
    for (const QPoint &way : {QPoint(-21, 7), QPoint(-25, 11), QPoint(17, -9)}) {
        bench().moveTo(from + way, Qt::ControlModifier);
        const QRect expected = start.translated(bench().inScreen(from, from + way));
        QCOMPARE(bench().shown(2), expected);
        QTRY_COMPARE(bench().heldWindow(2), expected);
        QCOMPARE(bench().shown(2), expected);
    }
    bench().release(from + QPoint(17, -9), Qt::ControlModifier);
}

void tst_CanvasMouse::oneWriteIsUnderWayAndTheLastOneArrives()
{
    DeviceLog log;
    QVERIFY(bench().addFault("hold,code=0x1405,count=1"));
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    bench().moveTo(from + QPoint(-5, 5));
    QTRY_COMPARE(log.writes(0x1405).size(), 1);
    for (int step = 6; step <= 20; ++step)
        bench().moveTo(from + QPoint(-step, step)); // without the events that end the first write
    bench().release(from + QPoint(-20, 20));
    const QRect last = bench().shown(2);
    QVERIFY(bench().releaseAnswers());
    QTRY_COMPARE(bench().heldWindow(2), last);
    // The first one, and the one that waited last.
    QTRY_COMPARE(log.writes(0x1405).size(), 2);
}

void tst_CanvasMouse::dragIsOneStepOfUndo()
{
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    for (int step = 1; step <= 10; ++step) {
        bench().moveTo(from + QPoint(-2 * step, step), Qt::ControlModifier);
        QCoreApplication::processEvents();
    }
    bench().release(from + QPoint(-20, 10), Qt::ControlModifier);
    const QRect moved = bench().shown(2);
    QTRY_COMPARE(bench().changes.steps().count(), 1);
    QCOMPARE(bench().heldWindow(2), moved);

    bench().changes.undo();
    QTRY_COMPARE(bench().heldWindow(2), QRect(1400, 300, 800, 450));
    QTRY_COMPARE(bench().shown(2), QRect(1400, 300, 800, 450));
    QTRY_VERIFY(bench().changes.canRedo());
    bench().changes.redo();
    QTRY_COMPARE(bench().heldWindow(2), moved);
    QTRY_COMPARE(bench().shown(2), moved);
}

void tst_CanvasMouse::layerSnapsToTheEdgeOfTheScreen()
{
    const QPoint from = bench().pointOf(2);
    const double scale = bench().view.scale();
    // Four pixels of the view above the upper edge.
    bench().drag(from, from - QPoint(0, static_cast<int>(300 * scale) + 4));
    QCOMPARE(bench().shown(2).y(), 0);
    QTRY_COMPARE(bench().heldWindow(2).y(), 0);
}

void tst_CanvasMouse::layerSnapsToAnotherLayer()
{
    const QPoint from = bench().pointOf(2);
    const double scale = bench().view.scale();
    // Layer 1 ends at 1280.
    bench().drag(from, from - QPoint(static_cast<int>(120 * scale) - 4, 10));
    QCOMPARE(bench().shown(2).x(), 1280);
    QTRY_COMPARE(bench().heldWindow(2).x(), 1280);
}

void tst_CanvasMouse::controlKeySuspendsSnapping()
{
    const QPoint from = bench().pointOf(2);
    const QPoint to = from - QPoint(0, static_cast<int>(300 * bench().view.scale()) + 4);
    const QRect expected = QRect(1400, 300, 800, 450).translated(bench().inScreen(from, to));
    QVERIFY(expected.y() != 0);
    bench().drag(from, to, Qt::ControlModifier);
    QCOMPARE(bench().shown(2), expected);
    QTRY_COMPARE(bench().heldWindow(2), expected);
}

void tst_CanvasMouse::shiftKeyKeepsADirection()
{
    const QPoint from = bench().pointOf(2);
    bench().drag(from, from + QPoint(-20, 12), Qt::ShiftModifier);
    QCOMPARE(bench().shown(2).y(), 300);
    QVERIFY(bench().shown(2).x() < 1400);
    const QRect shown = bench().shown(2);
    QTRY_COMPARE(bench().heldWindow(2), shown);
}

void tst_CanvasMouse::handleResizes_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::newRow("top left") << 0.0 << 0.0;
    QTest::newRow("top") << 0.5 << 0.0;
    QTest::newRow("bottom right") << 1.0 << 1.0;
    QTest::newRow("right") << 1.0 << 0.5;
}

void tst_CanvasMouse::handleResizes()
{
    QFETCH(const double, x);
    QFETCH(const double, y);
    bench().selection.setLayer(CanvasBench::id(2));
    const QPoint from = bench().pointOf(2, x, y);
    const QPoint to = from + QPoint(13, 11);
    const QPoint way = bench().inScreen(from, to);
    QRect expected(1400, 300, 800, 450);
    expected.adjust(x == 0 ? way.x() : 0, y == 0 ? way.y() : 0, x == 1 ? way.x() : 0,
                    y == 1 ? way.y() : 0);
    bench().drag(from, to, Qt::ControlModifier);
    QCOMPARE(bench().shown(2), expected);
    QTRY_COMPARE(bench().heldWindow(2), expected);
}

void tst_CanvasMouse::backgroundStays()
{
    // Layer 3 covers the background, so that it is moved away first.
    const ProtoModel::Layer::s_LayerWindow away{CanvasBench::id(3), {0, 0, 1280, 1080}};
    QVERIFY(resultOf(bench().wall->call(&Control::Layer::writeWindow, {away})));
    QTRY_COMPARE(bench().shown(3), QRect(0, 0, 1280, 1080));
    const QPoint from = bench().pointOf(0, 0.9, 0.5);
    bench().drag(from, from + QPoint(-40, 20));
    QVERIFY(isSame(*bench().selection.layer(), CanvasBench::id(0)));
    QCOMPARE(bench().shown(0), QRect(0, 0, 3840, 1080));
    QCOMPARE(bench().heldWindow(0), QRect(0, 0, 3840, 1080));
}

void tst_CanvasMouse::escapeReturnsTheLayer()
{
    const QPoint from = bench().pointOf(2);
    bench().press(from);
    bench().moveTo(from + QPoint(-20, 12));
    QTRY_VERIFY(bench().heldWindow(2) != QRect(1400, 300, 800, 450));
    QTest::keyClick(&bench().view, Qt::Key_Escape);
    QCOMPARE(bench().shown(2), QRect(1400, 300, 800, 450));
    QTRY_COMPARE(bench().heldWindow(2), QRect(1400, 300, 800, 450));
    bench().moveTo(from + QPoint(-40, 12));
    bench().release(from + QPoint(-40, 12));
    QCOMPARE(bench().shown(2), QRect(1400, 300, 800, 450));
    QVERIFY(bench().selection.layer());
}

void tst_CanvasMouse::layerMovesAtTwiceTheScale()
{
    const double fitted = bench().view.scale();
    while (bench().view.scale() < 2 * fitted)
        bench().view.zoomIn();
    bench().view.centerOn(&bench().item(2));
    const QPoint from = bench().pointOf(2);
    const QPoint to = from + QPoint(-31, 17);
    const QRect expected = QRect(1400, 300, 800, 450).translated(bench().inScreen(from, to));
    bench().drag(from, to, Qt::ControlModifier);
    QCOMPARE(bench().shown(2), expected);
    QTRY_COMPARE(bench().heldWindow(2), expected);
}

void tst_CanvasMouse::dragOutsideTheScreensPans()
{
    for (int step = 0; step < 6; ++step)
        bench().view.zoomIn();
    const QRectF all = bench().view.canvas().sceneRect();
    const ScreenItem *const main = bench().view.canvas().screens().first();
    // Between preview and programme.
    const QPointF between(all.center().x(), main->sceneBoundingRect().center().y());
    bench().view.centerOn(between);
    const QPoint from = bench().view.mapFromScene(between);
    bench().drag(from, from + QPoint(-60, 20));
    QCOMPARE(bench().view.mapFromScene(between), from + QPoint(-60, 20));
}

QTEST_MAIN(tst_CanvasMouse)
#include "tst_canvasmouse.moc"
