// The arithmetic of moving and resizing a layer with the pointer.

#include <tavoropanel/canvas/layergeometry.h>
#include <tavoropanel/canvas/windowdrag.h>

#include <QTest>

using namespace Tavoro::Panel;

namespace {

const QRect start(200, 100, 640, 360);

SnapLines fullHdLines()
{
    SnapLines lines;
    lines.addEdges({0, 0, 1920, 1080});
    return lines;
}

/// Where a drag from \a pressed leads.
QRect dragged(Qt::Edges handle, const QPointF &pressed, const QPointF &pointer,
              const DragManner &manner = {})
{
    return WindowDrag(start, handle, pressed, fullHdLines()).at(pointer, manner).rect;
}

} // namespace

class tst_CanvasDrag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void layerFollowsThePointer();
    void fractionsOfPixelsAreRounded();
    void constrainedMoveKeepsOneDirection();
    void constrainedMoveDoesNotSnapInTheOtherDirection();
    void moveSnapsUnlessSuspended();
    void handleMovesItsEdges_data();
    void handleMovesItsEdges();
    void layerDoesNotGetSmallerThanTheSmallest();
    void smallerLayerMayKeepItsSize();
    void constrainedResizeKeepsProportions_data();
    void constrainedResizeKeepsProportions();
    void resizeSnapsUnlessSuspended();
    void positionsStayWithinTheLimitsOfTheDevice();
    void recordsAndRectanglesAreEqual();
    void handleIsFoundWithinReach();
    void cornersArePreferredToEdges();
    void cursorShowsTheDirection();
};

void tst_CanvasDrag::layerFollowsThePointer()
{
    QCOMPARE(dragged({}, {250, 150}, {350, 130}), QRect(300, 80, 640, 360));
    QCOMPARE(dragged({}, {250, 150}, {250, 150}), start);
}

void tst_CanvasDrag::fractionsOfPixelsAreRounded()
{
    QCOMPARE(dragged({}, {250.25, 150.5}, {260.5, 160.25}), QRect(210, 110, 640, 360));
}

void tst_CanvasDrag::constrainedMoveKeepsOneDirection()
{
    QCOMPARE(dragged({}, {0, 0}, {100, 90}, {0, true}), QRect(300, 100, 640, 360));
    QCOMPARE(dragged({}, {0, 0}, {90, -100}, {0, true}), QRect(200, 0, 640, 360));
}

void tst_CanvasDrag::constrainedMoveDoesNotSnapInTheOtherDirection()
{
    QCOMPARE(dragged({}, {0, 0}, {-195, 3}, {110, true}), QRect(0, 100, 640, 360));
    QCOMPARE(dragged({}, {0, 0}, {3, -95}, {210, true}), QRect(200, 0, 640, 360));
}

void tst_CanvasDrag::moveSnapsUnlessSuspended()
{
    QCOMPARE(dragged({}, {0, 0}, {-195, 0}, {10, false}), QRect(0, 100, 640, 360));
    QCOMPARE(dragged({}, {0, 0}, {-195, 0}, {0, false}), QRect(5, 100, 640, 360));
}

void tst_CanvasDrag::handleMovesItsEdges_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QRect>("expected");

    // clang-format off
    QTest::newRow("left")         << int(Qt::LeftEdge)                   << QRect(240, 100, 600, 360);
    QTest::newRow("right")        << int(Qt::RightEdge)                  << QRect(200, 100, 680, 360);
    QTest::newRow("top")          << int(Qt::TopEdge)                    << QRect(200, 130, 640, 330);
    QTest::newRow("bottom")       << int(Qt::BottomEdge)                 << QRect(200, 100, 640, 390);
    QTest::newRow("top left")     << int(Qt::TopEdge | Qt::LeftEdge)     << QRect(240, 130, 600, 330);
    QTest::newRow("top right")    << int(Qt::TopEdge | Qt::RightEdge)    << QRect(200, 130, 680, 330);
    QTest::newRow("bottom left")  << int(Qt::BottomEdge | Qt::LeftEdge)  << QRect(240, 100, 600, 390);
    QTest::newRow("bottom right") << int(Qt::BottomEdge | Qt::RightEdge) << QRect(200, 100, 680, 390);
    // clang-format on
}

void tst_CanvasDrag::handleMovesItsEdges()
{
    QFETCH(const int, handle);
    QTEST(dragged(Qt::Edges(handle), {0, 0}, {40, 30}), "expected");
}

void tst_CanvasDrag::layerDoesNotGetSmallerThanTheSmallest()
{
    QCOMPARE(dragged(Qt::LeftEdge, {0, 0}, {5000, 0}), QRect(808, 100, 32, 360));
    QCOMPARE(dragged(Qt::RightEdge, {0, 0}, {-5000, 0}), QRect(200, 100, 32, 360));
    QCOMPARE(dragged(Qt::TopEdge, {0, 0}, {0, 5000}), QRect(200, 428, 640, 32));
    QCOMPARE(dragged(Qt::BottomEdge, {0, 0}, {0, -5000}), QRect(200, 100, 640, 32));
}

void tst_CanvasDrag::smallerLayerMayKeepItsSize()
{
    QCOMPARE(resized({0, 0, 8, 8}, Qt::RightEdge, {0, 0}), QRect(0, 0, 8, 8));
    QCOMPARE(resized({0, 0, 8, 8}, Qt::RightEdge, {-3, 0}), QRect(0, 0, 8, 8));
    QCOMPARE(resized({0, 0, 8, 8}, Qt::RightEdge, {4, 0}), QRect(0, 0, 12, 8));
}

void tst_CanvasDrag::constrainedResizeKeepsProportions_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QPointF>("pointer");
    QTest::addColumn<QRect>("expected");

    // clang-format off
    QTest::newRow("bottom right") << int(Qt::BottomEdge | Qt::RightEdge) << QPointF(160, 0) << QRect(200, 100, 800, 450);
    QTest::newRow("top left")     << int(Qt::TopEdge | Qt::LeftEdge)     << QPointF(320, 0) << QRect(520, 280, 320, 180);
    QTest::newRow("top")          << int(Qt::TopEdge)                    << QPointF(0, 180) << QRect(200, 280, 320, 180);
    // clang-format on
}

void tst_CanvasDrag::constrainedResizeKeepsProportions()
{
    QFETCH(const int, handle);
    QFETCH(const QPointF, pointer);
    QTEST(dragged(Qt::Edges(handle), {0, 0}, pointer, {0, true}), "expected");
}

void tst_CanvasDrag::resizeSnapsUnlessSuspended()
{
    const Qt::Edges corner = Qt::BottomEdge | Qt::RightEdge;
    QCOMPARE(dragged(corner, {0, 0}, {1075, 625}, {10, false}), QRect(200, 100, 1720, 980));
    QCOMPARE(dragged(corner, {0, 0}, {1075, 625}, {0, false}), QRect(200, 100, 1715, 985));
}

void tst_CanvasDrag::positionsStayWithinTheLimitsOfTheDevice()
{
    QCOMPARE(dragged({}, {0, 0}, {1e6, -1e6}), QRect(65535, -65535, 640, 360));
    QCOMPARE(dragged(Qt::RightEdge, {0, 0}, {1e6, 0}), QRect(200, 100, 65535, 360));
}

void tst_CanvasDrag::recordsAndRectanglesAreEqual()
{
    const auto record = toRecord({-5, 6, 700, 800});
    QCOMPARE(record.x, -5);
    QCOMPARE(record.y, 6);
    QCOMPARE(record.width, 700);
    QCOMPARE(record.height, 800);
    QCOMPARE(toRect(record), QRect(-5, 6, 700, 800));
}

void tst_CanvasDrag::handleIsFoundWithinReach()
{
    const QRectF rect(start);
    QCOMPARE(handleAt(rect, {202, 103}, {5, 5}), Qt::TopEdge | Qt::LeftEdge);
    QCOMPARE(handleAt(rect, {840, 278}, {5, 5}), Qt::Edges(Qt::RightEdge));
    QCOMPARE(handleAt(rect, {520, 463}, {5, 5}), Qt::Edges(Qt::BottomEdge));
    QCOMPARE(handleAt(rect, {208, 103}, {5, 5}), Qt::Edges());
    QCOMPARE(handleAt(rect, {520, 280}, {5, 5}), Qt::Edges());
}

void tst_CanvasDrag::cornersArePreferredToEdges()
{
    QCOMPARE(handleAt({0, 0, 8, 8}, {1, 1}, {5, 5}), Qt::TopEdge | Qt::LeftEdge);
}

void tst_CanvasDrag::cursorShowsTheDirection()
{
    QCOMPARE(cursorOf(Qt::TopEdge | Qt::LeftEdge), Qt::SizeFDiagCursor);
    QCOMPARE(cursorOf(Qt::BottomEdge | Qt::RightEdge), Qt::SizeFDiagCursor);
    QCOMPARE(cursorOf(Qt::TopEdge | Qt::RightEdge), Qt::SizeBDiagCursor);
    QCOMPARE(cursorOf(Qt::BottomEdge | Qt::LeftEdge), Qt::SizeBDiagCursor);
    QCOMPARE(cursorOf(Qt::LeftEdge), Qt::SizeHorCursor);
    QCOMPARE(cursorOf(Qt::TopEdge), Qt::SizeVerCursor);
    QCOMPARE(cursorOf({}), Qt::SizeAllCursor);
}

QTEST_APPLESS_MAIN(tst_CanvasDrag)
#include "tst_canvasdrag.moc"
