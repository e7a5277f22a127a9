#pragma once

#include <tavorosim/commands/request.h>
#include <tavorowire/leases.h>

#include <QtGlobal>

#include <string>

namespace Tavoro::Sim {

/// Decides which client holds the lease of the device. Clients are identified by the bytes with
/// which they introduce their connections. Times are in milliseconds, by the device's clock.
class LeaseArbiter {
public:
    /// Answers a request about the lease. \a client is empty if it has not introduced itself.
    Answer carryOut(const std::string &client, const Request &request, qint64 now);
    /// The client whose lease has ended by time and has just gone to another client, or an empty
    /// text. The device no longer carries anything out for it. Forgets the client.
    std::string takeDisplaced();
    /// Ends the lease, as a restart does.
    void reset() { *this = {}; }

private:
    DeviceStatus write(const std::string &client, const Request &request, qint64 now);
    DeviceStatus take(const std::string &client, const std::string &body, qint64 now);
    DeviceStatus release(const std::string &client, const std::string &body);
    std::string stateFor(const std::string &client, qint64 now) const;

    std::string m_client; ///< The last client that has taken the lease and has not released it.
    std::string m_holder; ///< Its name.
    qint64 m_end = 0; ///< When its lease ends, or has ended.
    std::string m_displaced;
};

} // namespace Tavoro::Sim
