#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>

#include <functional>

namespace Tavoro::Sim {

/// Answers discovery requests.
class DiscoveryResponder : public QObject {
    Q_OBJECT

public:
    /// Returns the identity of the device. While its \c tcpPort is 0, requests are not answered.
    using Identity = std::function<ProtoModel::DeviceBaseInfo()>;

    explicit DiscoveryResponder(Identity identity, QObject *parent = nullptr);

    /// Shares \a port with other devices of this machine. On a loopback address it also answers the
    /// requests that are broadcast on this machine. On failure \a error holds a sentence.
    bool listen(const QHostAddress &address, quint16 port, QString &error);
    quint16 port() const { return m_socket.localPort(); }

private:
    bool bind(QUdpSocket &socket, const QHostAddress &address, quint16 port, QString &error);
    void answer(QUdpSocket &socket);

    const Identity m_identity;
    QUdpSocket m_socket;
    QUdpSocket
        m_loopbackBroadcasts; ///< Receives only: a loopback address gets no broadcasts itself.
};

} // namespace Tavoro::Sim
