#pragma once

#include <tavorossproxy/controlaction.h>
#include <tavorowire/devicestatus.h>

namespace Tavoro::Sim {

class SimClient;

/// Who of the clients holds control of the device. Clients are compared and never called.
class ControlArbiter {
public:
    using DeviceStatus = SSProxy::Wire::DeviceStatus;

    /// Null when nobody holds control.
    const SimClient *holder() const { return m_holder; }
    bool isHeldByOthers(const SimClient &client) const { return m_holder && m_holder != &client; }

    /// A write has come: who is the first gets control. False when another client holds it.
    bool letWrite(const SimClient &client);
    /// \a action is a ControlAction, as it came.
    DeviceStatus carryOut(const SimClient &client, quint8 action);
    /// The client has gone.
    void leave(const SimClient &client);

private:
    const SimClient *m_holder = nullptr;
};

} // namespace Tavoro::Sim
