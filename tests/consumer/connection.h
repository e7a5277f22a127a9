#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}
namespace Tavoro::SSProxy {
class NetworkChannel;
}

/// A device on the network and in the model.
class Connection {
public:
    ~Connection();

    /// Looks for a device at \a address by datagrams and connects to it.
    bool find(const QString &address, quint16 discoveryPort);
    /// Connects to the device that listens on \a port of \a address.
    bool open(const QString &address, quint16 port);

    /// Reads the whole device into the model; the event loop turns meanwhile.
    bool synchronise();

    /// The device in the model's list; null before the first synchronisation.
    std::shared_ptr<Tavoro::BizModel::Device> device() const;

private:
    std::shared_ptr<Tavoro::SSProxy::NetworkChannel> m_channel;
    QString m_mac;
    QString m_sn;
};

/// Turns the event loop until \a isTrue, which is looked at now and then; false if it never is.
bool waitUntil(const std::function<bool()> &isTrue);
