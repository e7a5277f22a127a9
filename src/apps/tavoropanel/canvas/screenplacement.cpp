#include "screenplacement.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

namespace Tavoro::Panel {

namespace {

using Rects = std::vector<QRectF>;

bool overlap(const Rects &screens)
{
    for (auto one = screens.begin(); one != screens.end(); ++one) {
        if (std::any_of(std::next(one), screens.end(),
                        [&](const QRectF &other) { return one->intersects(other); }))
            return true;
    }
    return false;
}

/// How many different edges are before \a edge.
double rank(const std::set<double> &edges, double edge)
{
    return static_cast<double>(std::distance(edges.begin(), edges.find(edge)));
}

/// Moves the screens apart. Screens with a common left or upper edge keep it.
Rects spread(Rects screens, const ScreenMargins &margins)
{
    std::set<double> lefts;
    std::set<double> tops;
    for (const QRectF &screen : screens) {
        lefts.insert(screen.left());
        tops.insert(screen.top());
    }
    for (QRectF &screen : screens) {
        screen.translate(-*lefts.begin() + rank(lefts, screen.left()) * margins.gap,
                         -*tops.begin() + margins.header
                             + rank(tops, screen.top()) * (margins.gap + margins.header));
    }
    return screens;
}

/// The length of rows with which all screens together are about as wide as they are high.
double rowLength(const Rects &screens, const ScreenMargins &margins)
{
    double widest = 0;
    double area = 0;
    for (const QRectF &screen : screens) {
        const double width = screen.width() + margins.gap;
        widest = std::max(widest, width);
        area += width * (screen.height() + margins.gap + margins.header);
    }
    return std::max(widest, std::sqrt(area));
}

Rects inRows(Rects screens, const ScreenMargins &margins)
{
    const double length = rowLength(screens, margins);
    double x = 0;
    double y = margins.header;
    double rowHeight = 0;
    for (QRectF &screen : screens) {
        if (x > 0 && x + screen.width() > length) {
            x = 0;
            y += rowHeight + margins.gap + margins.header;
            rowHeight = 0;
        }
        screen.moveTo(x, y);
        x += screen.width() + margins.gap;
        rowHeight = std::max(rowHeight, screen.height());
    }
    return screens;
}

} // namespace

Rects placedScreens(const Rects &screens, const ScreenMargins &margins)
{
    if (screens.empty())
        return {};
    return overlap(screens) ? inRows(screens, margins) : spread(screens, margins);
}

QRectF placedBounds(const Rects &screens, const ScreenMargins &margins)
{
    QRectF bounds;
    for (const QRectF &screen : placedScreens(screens, margins))
        bounds |= screen.adjusted(0, -margins.header, 0, 0);
    return bounds;
}

} // namespace Tavoro::Panel
