#pragma once

#include <tavorobizmodel/device.h>
#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/networkchannel.h>

#include <memory>

/// A simulated device, a channel to it over TCP that the manager knows, and the device of the model
/// that belongs to them. The model's list does not know the device.
class SimulatedConnection {
public:
    explicit SimulatedConnection(Tavoro::Sim::SimOptions options = {},
                                 const Tavoro::SSProxy::ChannelOptions &channelOptions = {});
    ~SimulatedConnection();
    SimulatedConnection(const SimulatedConnection &) = delete;
    SimulatedConnection &operator=(const SimulatedConnection &) = delete;

    std::unique_ptr<Tavoro::Sim::SimulatedDevice> simulator;
    std::shared_ptr<Tavoro::SSProxy::NetworkChannel> channel;
    std::shared_ptr<Tavoro::BizModel::Device> model;
};
