#pragma once

#include <QPoint>
#include <QRect>
#include <Qt>

#include <optional>
#include <vector>

namespace Tavoro::Panel {

/// A rectangle after snapping, with the lines to which it snapped.
struct SnappedRect {
    QRect rect;
    std::optional<int> x; ///< The vertical line.
    std::optional<int> y; ///< The horizontal line.
};

/// The lines to which layers snap: the edges of the screen, of its outputs and of other layers,
/// and the centre of the screen. In pixels of the screen. A right edge is at x + width.
class SnapLines {
public:
    /// Adds the four edges of \a rect.
    void addEdges(const QRect &rect);
    /// Adds the two lines through the centre of \a rect. The centre of a moved layer snaps to them.
    void addCentre(const QRect &rect);

    /// Moves \a rect by at most \a distance in each direction, so that an edge or its centre is on
    /// the nearest line.
    SnappedRect moved(const QRect &rect, int distance) const;
    /// Moves those edges of \a rect that \a edges names, by at most \a distance each. An edge does
    /// not snap if \a rect would then be narrower or lower than \a minimum.
    SnappedRect resized(const QRect &rect, Qt::Edges edges, int distance, int minimum) const;

private:
    std::vector<int> m_x;
    std::vector<int> m_y;
    std::vector<int> m_centreX;
    std::vector<int> m_centreY;
};

} // namespace Tavoro::Panel
