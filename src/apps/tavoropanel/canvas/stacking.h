#pragma once

#include <vector>

namespace Tavoro::Panel {

/// How a layer moves among the layers of its scene.
enum class StackingMove {
    Raise, ///< Above the next one.
    Lower, ///< Below the next one.
    ToTop, ///< Above all.
    ToBottom, ///< Below all.
};

/// A new position for a layer.
struct StackingChange {
    int index = 0; ///< Of the layer in the list that was given.
    int position = 0; ///< The new \c zorder.

    bool operator==(const StackingChange &other) const
    {
        return index == other.index && position == other.position;
    }
};

/// Moves one of the layers of a scene. \a positions are their \c zorder, the bottom layer first,
/// and \a moved is an index in them.
///
/// Returns what to write, in ascending order of positions: a device that moves a layer to a
/// position moves the layer there up, so the written layers must include all from the lowest to the
/// highest position that changes. Empty if the layer is there already.
std::vector<StackingChange> restacked(const std::vector<int> &positions, int moved,
                                      StackingMove move);

} // namespace Tavoro::Panel
