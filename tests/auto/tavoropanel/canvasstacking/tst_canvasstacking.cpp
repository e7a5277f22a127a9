// The positions that are written when a layer moves in the stack of its scene.

#include <tavoropanel/canvas/stacking.h>

#include <QTest>

#include <algorithm>

using namespace Tavoro::Panel;

namespace {

using Positions = std::vector<int>;
using Changes = std::vector<StackingChange>;

/// What a device holds after the writes: it moves a layer to a position, and the layers there up.
Positions written(Positions positions, const Changes &changes)
{
    for (const StackingChange &change : changes) {
        const auto moved = static_cast<std::size_t>(change.index);
        std::vector<std::size_t> above;
        for (std::size_t other = 0; other < positions.size(); ++other) {
            if (other != moved && positions[other] >= change.position)
                above.push_back(other);
        }
        std::stable_sort(above.begin(), above.end(), [&](std::size_t one, std::size_t other) {
            return positions[one] < positions[other];
        });
        int position = change.position;
        positions[moved] = position;
        for (const std::size_t other : above) {
            if (positions[other] > position)
                break;
            positions[other] = ++position;
        }
    }
    return positions;
}

} // namespace

Q_DECLARE_METATYPE(Positions)
Q_DECLARE_METATYPE(Changes)
Q_DECLARE_METATYPE(StackingMove)

class tst_CanvasStacking : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void moveWritesTheLayersBetween_data();
    void moveWritesTheLayersBetween();
    void deviceThatMovesLayersUpHasTheOrder_data() { moveWritesTheLayersBetween_data(); }
    void deviceThatMovesLayersUpHasTheOrder();
};

void tst_CanvasStacking::moveWritesTheLayersBetween_data()
{
    QTest::addColumn<Positions>("positions");
    QTest::addColumn<int>("moved");
    QTest::addColumn<StackingMove>("move");
    QTest::addColumn<Changes>("changes");

    // clang-format off
    QTest::newRow("raise")                  << Positions{1, 2, 3, 4} << 1 << StackingMove::Raise    << Changes{{2, 2}, {1, 3}};
    QTest::newRow("lower")                  << Positions{1, 2, 3, 4} << 2 << StackingMove::Lower    << Changes{{2, 2}, {1, 3}};
    QTest::newRow("to the top")             << Positions{1, 2, 3, 4} << 1 << StackingMove::ToTop    << Changes{{2, 2}, {3, 3}, {1, 4}};
    QTest::newRow("to the bottom")          << Positions{1, 2, 3, 4} << 2 << StackingMove::ToBottom << Changes{{2, 1}, {0, 2}, {1, 3}};
    QTest::newRow("gaps stay")              << Positions{1, 5, 9}    << 0 << StackingMove::ToTop    << Changes{{1, 1}, {2, 5}, {0, 9}};
    QTest::newRow("equal positions differ") << Positions{3, 3, 3}    << 0 << StackingMove::Raise    << Changes{{0, 4}, {2, 5}};
    QTest::newRow("is at the top")          << Positions{1, 2, 3}    << 2 << StackingMove::Raise    << Changes{};
    QTest::newRow("is the topmost")         << Positions{1, 2, 3}    << 2 << StackingMove::ToTop    << Changes{};
    QTest::newRow("is at the bottom")       << Positions{1, 2, 3}    << 0 << StackingMove::Lower    << Changes{};
    QTest::newRow("is the lowest")          << Positions{1, 2, 3}    << 0 << StackingMove::ToBottom << Changes{};
    QTest::newRow("is alone")               << Positions{7}          << 0 << StackingMove::Raise    << Changes{};
    // clang-format on
}

void tst_CanvasStacking::moveWritesTheLayersBetween()
{
    QFETCH(const Positions, positions);
    QFETCH(const int, moved);
    QFETCH(const StackingMove, move);
    QTEST(restacked(positions, moved, move), "changes");
}

void tst_CanvasStacking::deviceThatMovesLayersUpHasTheOrder()
{
    QFETCH(const Positions, positions);
    QFETCH(const int, moved);
    QFETCH(const StackingMove, move);
    QFETCH(const Changes, changes);
    Positions expected = positions;
    for (const StackingChange &change : restacked(positions, moved, move))
        expected[static_cast<std::size_t>(change.index)] = change.position;
    QCOMPARE(written(positions, changes), expected);
}

QTEST_APPLESS_MAIN(tst_CanvasStacking)
#include "tst_canvasstacking.moc"
