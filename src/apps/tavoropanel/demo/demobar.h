#pragma once

#include <QWidget>

namespace Tavoro::Panel {

class DemoDevice;

/// Says that the device is simulated; its button makes the device go away and come back.
class DemoBar : public QWidget {
    Q_OBJECT

public:
    explicit DemoBar(DemoDevice &device, QWidget *parent = nullptr);
};

} // namespace Tavoro::Panel
