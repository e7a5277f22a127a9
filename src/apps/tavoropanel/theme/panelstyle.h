#pragma once

#include <QProxyStyle>

namespace Tavoro::Panel {

/// The style of the window: Fusion with buttons that are easy to hit and check boxes that are
/// visible in dark colours.
class PanelStyle : public QProxyStyle {
    Q_OBJECT

public:
    PanelStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};

} // namespace Tavoro::Panel
