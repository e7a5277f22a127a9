#include "simulateddevice.h"

#include <tavorosim/server/simserver.h>

namespace Tavoro::Sim {

SimulatedDevice::SimulatedDevice(SimOptions options) : m_options(std::move(options)) { }

SimulatedDevice::~SimulatedDevice()
{
    m_thread.run([this] { m_server.reset(); });
}

bool SimulatedDevice::start(QString &error)
{
    bool isListening = false;
    m_thread.run([&] {
        m_server = std::make_unique<SimServer>(m_options);
        isListening = m_server->listen(error);
        m_port = m_server->port();
        m_controlPort = m_server->controlPort();
        m_discoveryPort = m_server->discoveryPort();
    });
    return isListening;
}

ConsoleAnswer SimulatedDevice::execute(const QString &line)
{
    ConsoleAnswer answer;
    m_thread.run([&] { answer = m_server->execute(line); });
    return answer;
}

} // namespace Tavoro::Sim
