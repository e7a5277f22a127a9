#pragma once

#include <support/tavorossproxy/tcpconnection.h>

#include <tavorosim/simulateddevice.h>

#include <memory>

/// A running simulated device; it may be switched off.
class RunningSimulator {
public:
    explicit RunningSimulator(Tavoro::Sim::SimOptions options);

    std::unique_ptr<Tavoro::Sim::SimulatedDevice> simulator;
};

/// A simulated device, and a connection to it.
class SimulatedConnection : public RunningSimulator, public TcpConnection {
public:
    explicit SimulatedConnection(Tavoro::Sim::SimOptions options = {},
                                 const Tavoro::SSProxy::ChannelOptions &channelOptions = {});
};
