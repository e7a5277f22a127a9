#pragma once

#include <QString>
#include <QtGlobal>

#include <chrono>

namespace Tavoro::SSProxy {

/// The lease of a device, as the device has answered. Clients that do the same work agree through
/// it which of them does the work now. It is independent of control: the device permits and forbids
/// nothing because of it.
struct DeviceLease {
    /// Who holds the lease.
    enum State : quint8 {
        Free, ///< No client holds it.
        Own, ///< This channel holds it.
        Others, ///< Another client holds it.
    };
    State state = Free; ///< Who holds the lease. Free as well if \c status is not 0.
    QString holder; ///< The name that the holder has given itself. Empty if the lease is free.
    std::chrono::milliseconds remaining{0}; ///< The time until the lease ends.
    /// When the lease ends, counted from the moment at which the question was sent: the lease of
    /// this channel does not end earlier on the device.
    std::chrono::steady_clock::time_point end;
    /// 0 if the device has answered, 1 if it does not support leases. Other values up to 255: the
    /// device has refused the request; above 255 a ChannelStatus.
    quint16 status = 0;
};

} // namespace Tavoro::SSProxy
