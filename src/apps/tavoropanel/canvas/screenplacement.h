#pragma once

#include <QRectF>

#include <vector>

namespace Tavoro::Panel {

/// The free space around each screen, in pixels of the screens.
struct ScreenMargins {
    double header = 0; ///< Above each screen, for its title.
    double gap = 0; ///< Between screens.
};

/// Arranges the screens of one scene. \a screens are their rectangles in the layout of the device.
///
/// The screens keep their layout, with margins between them. If some of them overlap there, which
/// is so for a device whose layout was never set, all are arranged in rows instead. The result
/// begins at 0, 0, and its order is that of \a screens.
std::vector<QRectF> placedScreens(const std::vector<QRectF> &screens, const ScreenMargins &margins);

/// The smallest rectangle with all \a screens and their headers.
QRectF placedBounds(const std::vector<QRectF> &screens, const ScreenMargins &margins);

} // namespace Tavoro::Panel
