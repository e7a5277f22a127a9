#pragma once

#include <QProxyStyle>

namespace Tavoro::Panel {

/// The style of the window: Fusion with buttons that are easy to hit.
class PanelStyle : public QProxyStyle {
    Q_OBJECT

public:
    PanelStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
};

} // namespace Tavoro::Panel
