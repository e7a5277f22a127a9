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

/// A connection to a device, and the device in the model.
class Connection {
public:
    ~Connection();

    /// Finds a device at \a address by discovery and connects to it.
    bool find(const QString &address, quint16 discoveryPort);
    /// Connects to the device that listens on \a port of \a address.
    bool open(const QString &address, quint16 port);

    /// Reads the whole device into the model. Runs the event loop meanwhile.
    bool synchronise();

    /// The device in the model's list; null before the first synchronisation.
    std::shared_ptr<Tavoro::BizModel::Device> device() const;

private:
    std::shared_ptr<Tavoro::SSProxy::NetworkChannel> m_channel;
    QString m_mac;
    QString m_sn;
};

/// Runs the event loop until \a isTrue returns true; false if it does not in time.
bool waitUntil(const std::function<bool()> &isTrue);
