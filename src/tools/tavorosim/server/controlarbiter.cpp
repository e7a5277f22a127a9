#include "controlarbiter.h"

namespace Tavoro::Sim {

using SSProxy::ControlAction;

bool ControlArbiter::take(const SimClient &client)
{
    if (!m_holder)
        m_holder = &client;
    return m_holder == &client;
}

ControlArbiter::DeviceStatus ControlArbiter::carryOut(const SimClient &client, quint8 action)
{
    switch (static_cast<ControlAction>(action)) {
    case ControlAction::Take:
        return take(client) ? DeviceStatus::Success : DeviceStatus::ControlledByOthers;
    case ControlAction::GiveUp:
        leave(client);
        return DeviceStatus::Success;
    case ControlAction::Force:
        m_holder = &client;
        return DeviceStatus::Success;
    }
    return DeviceStatus::ValueOutOfRange;
}

void ControlArbiter::leave(const SimClient &client)
{
    if (m_holder == &client)
        m_holder = nullptr;
}

} // namespace Tavoro::Sim
