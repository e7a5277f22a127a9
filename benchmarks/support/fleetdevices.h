#pragma once

#include "childprocess.h"

#include <vector>

namespace Bench {

/// Simulated devices in a process of their own; see fleet/fleetdevices.cpp.
class FleetDevices {
public:
    /// \a program is the path of fleetdevices.
    FleetDevices(const QString &program, int count);
    ~FleetDevices();
    FleetDevices(const FleetDevices &) = delete;
    FleetDevices &operator=(const FleetDevices &) = delete;

    const std::vector<quint16> &ports() const { return m_ports; }
    /// Each device sends \a rate reports a second until stopReports().
    void startReports(int rate);
    /// Returns how many reports all devices have sent.
    qint64 stopReports();

private:
    qint64 readNumber();

    ChildProcess m_process;
    std::vector<quint16> m_ports;
};

} // namespace Bench
