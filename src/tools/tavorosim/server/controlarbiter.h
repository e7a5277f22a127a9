#pragma once

#include <tavorossproxy/controlaction.h>
#include <tavorowire/devicestatus.h>

namespace Tavoro::Sim {

class SimClient;

/// Decides which client holds control of the device. Clients are compared and never called.
class ControlArbiter {
public:
    using DeviceStatus = SSProxy::Wire::DeviceStatus;

    /// Null when no client holds control.
    const SimClient *holder() const { return m_holder; }
    bool isHeldByOthers(const SimClient &client) const { return m_holder && m_holder != &client; }

    /// Gives control to \a client, unless another client holds it: then false.
    bool take(const SimClient &client);
    /// Carries out a ControlAction. \a action is its number as received.
    DeviceStatus carryOut(const SimClient &client, quint8 action);
    /// Ends the control of \a client, if it holds it.
    void leave(const SimClient &client);

private:
    const SimClient *m_holder = nullptr;
};

} // namespace Tavoro::Sim
