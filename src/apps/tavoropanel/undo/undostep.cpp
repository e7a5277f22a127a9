#include "undostep.h"

#include <tavorosession/devicesession.h>

#include <QCoreApplication>

namespace Tavoro::Panel {

namespace {

/// Translations of the descriptions.
class StepTexts {
    Q_DECLARE_TR_FUNCTIONS(UndoSteps)
};

bool isConnected(const DeviceSession *device)
{
    return device
        && (device->state().kind == DeviceState::Ready
            || device->state().kind == DeviceState::Reading);
}

} // namespace

UndoStep::UndoStep(DeviceSession &device, const QString &text, const Write &back,
                   const Write &again)
    : QUndoCommand(text),
      m_device(&device),
      m_deviceName(device.name()),
      m_back(back),
      m_again(again)
{ }

QString UndoStep::description() const
{
    //: What the operator did, the name of the device
    return (isConnected(m_device) ? StepTexts::tr("%1 on %2")
                                  : StepTexts::tr("%1 on %2, not connected"))
        .arg(text(), m_deviceName);
}

} // namespace Tavoro::Panel
