#pragma once

#include <support/fleetdevices.h>

#include <tavorosession/session.h>

namespace Bench {

/// A device without a gateway, which this process calls itself.
class DirectCalls {
public:
    DirectCalls();

    /// Calls Device.writeSwap and waits for the outcome. Ends the program unless it was done.
    void callWrite();

private:
    FleetDevices m_devices;
    Tavoro::Session m_session;
    Tavoro::DeviceSession *m_device;
};

} // namespace Bench
