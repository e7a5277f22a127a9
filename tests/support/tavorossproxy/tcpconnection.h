#pragma once

#include <tavorobizmodel/device.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/networkchannel.h>

#include <memory>

/// A channel over loopback in the manager, and its device in the model. The device is not in the
/// model's list.
class TcpConnection {
public:
    explicit TcpConnection(quint16 port, const Tavoro::SSProxy::ChannelOptions &options = {});
    ~TcpConnection();
    TcpConnection(const TcpConnection &) = delete;
    TcpConnection &operator=(const TcpConnection &) = delete;

    const std::shared_ptr<Tavoro::SSProxy::NetworkChannel> channel;
    const std::shared_ptr<Tavoro::BizModel::Device> model;
};
