#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <string_view>

namespace Tavoro::SSProxy::Internal {

/// Where datagrams go out and come in. On the thread of the channels' loop, where it is destroyed
/// too.
class DatagramPort {
public:
    /// \a address is the sender's, as text.
    using Receiver = std::function<void(const QString &address, std::string_view datagram)>;

    virtual ~DatagramPort() = default;

    /// False with the reason in \a error.
    virtual bool open(Receiver receiver, QString &error) = 0;
    virtual void send(const QString &address, quint16 port, const QByteArray &datagram) = 0;
    /// The broadcast addresses of the networks that this machine has now.
    virtual QStringList broadcastAddresses() const = 0;
};

} // namespace Tavoro::SSProxy::Internal
