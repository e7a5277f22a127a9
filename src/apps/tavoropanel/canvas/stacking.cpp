#include "stacking.h"

#include <algorithm>
#include <numeric>

namespace Tavoro::Panel {

namespace {

int targetOf(int moved, int count, StackingMove move)
{
    switch (move) {
    case StackingMove::Raise:
        return std::min(moved + 1, count - 1);
    case StackingMove::Lower:
        return std::max(moved - 1, 0);
    case StackingMove::ToTop:
        return count - 1;
    case StackingMove::ToBottom:
        return 0;
    }
    return moved;
}

/// Layers may share a position; each gets one of its own.
std::vector<int> distinct(std::vector<int> positions)
{
    for (std::size_t i = 1; i < positions.size(); ++i)
        positions[i] = std::max(positions[i], positions[i - 1] + 1);
    return positions;
}

} // namespace

std::vector<StackingChange> restacked(const std::vector<int> &positions, int moved,
                                      StackingMove move)
{
    const int count = static_cast<int>(positions.size());
    const int target = targetOf(moved, count, move);
    if (target == moved)
        return {};

    std::vector<int> order(positions.size());
    std::iota(order.begin(), order.end(), 0);
    order.erase(order.begin() + moved);
    order.insert(order.begin() + target, moved);

    const std::vector<int> slots = distinct(positions);
    std::vector<StackingChange> changes;
    for (std::size_t slot = 0; slot < order.size(); ++slot)
        changes.push_back({order[slot], slots[slot]});
    const auto stays = [&](const StackingChange &change) {
        return positions[static_cast<std::size_t>(change.index)] == change.position;
    };
    changes.erase(changes.begin(), std::find_if_not(changes.begin(), changes.end(), stays));
    changes.erase(std::find_if_not(changes.rbegin(), changes.rend(), stays).base(), changes.end());
    return changes;
}

} // namespace Tavoro::Panel
