#include "panelstyle.h"

#include <QPainter>
#include <QStyleOption>

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

void PanelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox)
        return;
    painter->setPen(option->palette.color(QPalette::PlaceholderText));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

} // namespace Tavoro::Panel
