// Snapping of layers to lines: which edge snaps, to which line, and how far away.

#include <tavoropanel/canvas/snaplines.h>

#include <QTest>

using namespace Tavoro::Panel;

namespace {

/// A screen of full HD with a layer in its upper left quarter.
SnapLines linesOfAScreen()
{
    SnapLines lines;
    lines.addEdges({0, 0, 1920, 1080});
    lines.addCentre({0, 0, 1920, 1080});
    lines.addEdges({0, 0, 960, 540});
    return lines;
}

} // namespace

class tst_CanvasSnapping : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void movedLayerSnapsToTheNearestLine_data();
    void movedLayerSnapsToTheNearestLine();
    void movedLayerKeepsItsSize();
    void linesAreReported();
    void resizedEdgeSnaps_data();
    void resizedEdgeSnaps();
    void edgeDoesNotSnapBelowTheSmallestSize();
    void withoutLinesNothingSnaps();
};

void tst_CanvasSnapping::movedLayerSnapsToTheNearestLine_data()
{
    QTest::addColumn<QRect>("moved");
    QTest::addColumn<QRect>("snapped");

    // clang-format off
    QTest::newRow("left edge to the edge of the screen")     << QRect(7, 300, 400, 300)    << QRect(0, 300, 400, 300);
    QTest::newRow("just near enough")                        << QRect(10, 300, 400, 300)   << QRect(0, 300, 400, 300);
    QTest::newRow("too far away")                            << QRect(11, 301, 400, 300)   << QRect(11, 301, 400, 300);
    QTest::newRow("right edge to the edge of the screen")    << QRect(1515, 300, 400, 300) << QRect(1520, 300, 400, 300);
    QTest::newRow("left edge to the edge of another layer")  << QRect(955, 300, 400, 300)  << QRect(960, 300, 400, 300);
    QTest::newRow("right edge to the edge of another layer") << QRect(566, 300, 400, 300)  << QRect(560, 300, 400, 300);
    QTest::newRow("lower edge to the edge of the screen")    << QRect(300, 775, 400, 300)  << QRect(300, 780, 400, 300);
    QTest::newRow("centre to the centre of the screen")      << QRect(765, 300, 400, 300)  << QRect(760, 300, 400, 300);
    QTest::newRow("both directions")                         << QRect(-4, 544, 400, 300)   << QRect(0, 540, 400, 300);
    QTest::newRow("the nearer of two lines")                 << QRect(958, 300, 965, 300)  << QRect(960, 300, 965, 300);
    // clang-format on
}

void tst_CanvasSnapping::movedLayerSnapsToTheNearestLine()
{
    QFETCH(const QRect, moved);
    QTEST(linesOfAScreen().moved(moved, 10).rect, "snapped");
}

void tst_CanvasSnapping::movedLayerKeepsItsSize()
{
    const SnappedRect snapped = linesOfAScreen().moved({-3, 5, 1915, 1077}, 10);
    QCOMPARE(snapped.rect.size(), QSize(1915, 1077));
}

void tst_CanvasSnapping::linesAreReported()
{
    const SnappedRect snapped = linesOfAScreen().moved({1515, 300, 400, 300}, 10);
    QCOMPARE(snapped.x.value_or(-1), 1920);
    QVERIFY(!snapped.y);
}

void tst_CanvasSnapping::resizedEdgeSnaps_data()
{
    QTest::addColumn<int>("edges");
    QTest::addColumn<QRect>("resized");
    QTest::addColumn<QRect>("snapped");

    // clang-format off
    QTest::newRow("left")           << int(Qt::LeftEdge)                   << QRect(955, 300, 400, 300) << QRect(960, 300, 395, 300);
    QTest::newRow("right")          << int(Qt::RightEdge)                  << QRect(500, 300, 455, 300) << QRect(500, 300, 460, 300);
    QTest::newRow("top")            << int(Qt::TopEdge)                    << QRect(300, 545, 400, 300) << QRect(300, 540, 400, 305);
    QTest::newRow("bottom")         << int(Qt::BottomEdge)                 << QRect(300, 700, 400, 374) << QRect(300, 700, 400, 380);
    QTest::newRow("corner")         << int(Qt::RightEdge | Qt::BottomEdge) << QRect(500, 700, 463, 377) << QRect(500, 700, 460, 380);
    QTest::newRow("other edges do not") << int(Qt::RightEdge)              << QRect(4, 4, 700, 500)     << QRect(4, 4, 700, 500);
    QTest::newRow("centres do not") << int(Qt::RightEdge)                  << QRect(762, 300, 400, 300) << QRect(762, 300, 400, 300);
    // clang-format on
}

void tst_CanvasSnapping::resizedEdgeSnaps()
{
    QFETCH(const int, edges);
    QFETCH(const QRect, resized);
    QTEST(linesOfAScreen().resized(resized, Qt::Edges(edges), 10, 32).rect, "snapped");
}

void tst_CanvasSnapping::edgeDoesNotSnapBelowTheSmallestSize()
{
    const QRect narrow(930, 300, 34, 300);
    const SnappedRect snapped = linesOfAScreen().resized(narrow, Qt::RightEdge, 10, 32);
    QCOMPARE(snapped.rect, narrow);
    QVERIFY(!snapped.x);
}

void tst_CanvasSnapping::withoutLinesNothingSnaps()
{
    const QRect rect(1, 1, 100, 100);
    QCOMPARE(SnapLines().moved(rect, 10).rect, rect);
    QCOMPARE(SnapLines().resized(rect, Qt::LeftEdge, 10, 32).rect, rect);
}

QTEST_APPLESS_MAIN(tst_CanvasSnapping)
#include "tst_canvassnapping.moc"
