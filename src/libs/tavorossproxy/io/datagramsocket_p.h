#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <string_view>

namespace Tavoro::SSProxy::Internal {

/// Sends and receives datagrams. Used and destroyed on the loop's thread.
class DatagramSocket {
public:
    /// Called for each datagram. \a address is that of the sender, as text.
    using Receiver = std::function<void(const QString &address, std::string_view datagram)>;

    virtual ~DatagramSocket() = default;

    /// Starts to receive on any free port. Returns false, with the reason in \a error, on failure.
    virtual bool open(Receiver receiver, QString &error) = 0;
    virtual void send(const QString &address, quint16 port, const QByteArray &datagram) = 0;
    /// Returns the broadcast addresses of the networks to which this machine is connected now, and
    /// that of the machine itself.
    virtual QStringList broadcastAddresses() const = 0;
};

} // namespace Tavoro::SSProxy::Internal
