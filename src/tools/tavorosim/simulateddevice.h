#pragma once

#include <tavorosim/console/console.h>
#include <tavorosim/server/simoptions.h>
#include <tavorosim/server/simthread.h>

#include <QString>

#include <memory>

namespace Tavoro::Sim {

class SimServer;

/// A simulated device on a thread of its own, for tests and for programs that contain their
/// device.
///
/// All members are called on one thread, which need not have an event loop.
class SimulatedDevice {
public:
    explicit SimulatedDevice(SimOptions options = {});
    /// Drops all connections and ends the thread.
    ~SimulatedDevice();
    SimulatedDevice(const SimulatedDevice &) = delete;
    SimulatedDevice &operator=(const SimulatedDevice &) = delete;

    /// Opens the ports and serves from now on. On failure \a error holds a sentence.
    bool start(QString &error);
    /// The ports that were opened.
    quint16 port() const { return m_port; }
    quint16 controlPort() const { return m_controlPort; }
    quint16 discoveryPort() const { return m_discoveryPort; }

    /// Carries out a line of the console and waits until it has taken effect.
    ConsoleAnswer execute(const QString &line);

private:
    const SimOptions m_options;
    SimThread m_thread;
    std::unique_ptr<SimServer> m_server; ///< Lives and dies on m_thread.
    quint16 m_port = 0;
    quint16 m_controlPort = 0;
    quint16 m_discoveryPort = 0;
};

} // namespace Tavoro::Sim
