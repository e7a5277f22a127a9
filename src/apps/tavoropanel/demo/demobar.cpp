#include "demobar.h"

#include "demodevice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Tavoro::Panel {

DemoBar::DemoBar(DemoDevice &device, QWidget *parent) : QWidget(parent)
{
    auto *const text = new QLabel(tr("Demo: a simulated device in this program."), this);
    auto *const button = new QPushButton(this);
    button->setObjectName(QStringLiteral("plug"));
    button->setFocusPolicy(Qt::TabFocus);
    const auto update = [button, &device] {
        button->setText(device.isOn() ? tr("Pull the plug") : tr("Plug it in again"));
        button->setAccessibleName(button->text());
        button->setAccessibleDescription(device.isOn()
                                             ? tr("Makes the simulated device go away")
                                             : tr("Makes the simulated device come back"));
        button->setToolTip(button->accessibleDescription());
    };
    connect(button, &QPushButton::clicked, this, [&device] { device.setOn(!device.isOn()); });
    connect(&device, &DemoDevice::isOnChanged, this, update);
    update();

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 2, 8, 2);
    row->addWidget(text);
    row->addWidget(button);
    row->addStretch();
}

} // namespace Tavoro::Panel
