#include "simulatedconnection.h"

#include <utility>

using namespace Tavoro;

RunningSimulator::RunningSimulator(Sim::SimOptions options)
    : simulator(std::make_unique<Sim::SimulatedDevice>(std::move(options)))
{
    QString error;
    if (!simulator->start(error))
        qFatal("%s", qUtf8Printable(error));
}

SimulatedConnection::SimulatedConnection(Sim::SimOptions options,
                                         const SSProxy::ChannelOptions &channelOptions)
    : RunningSimulator(std::move(options)), TcpConnection(simulator->port(), channelOptions)
{ }
