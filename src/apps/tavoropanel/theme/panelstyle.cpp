#include "panelstyle.h"

namespace Tavoro::Panel {

namespace {

constexpr int buttonMargin = 14; ///< Left and right of the text together, and above and below it.

} // namespace

PanelStyle::PanelStyle() : QProxyStyle(QStringLiteral("Fusion")) { }

int PanelStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                            const QWidget *widget) const
{
    return metric == PM_ButtonMargin ? buttonMargin
                                     : QProxyStyle::pixelMetric(metric, option, widget);
}

} // namespace Tavoro::Panel
