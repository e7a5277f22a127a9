#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>

#include <functional>

namespace Tavoro::Sim {

/// Answers those who look for devices on the network.
class DiscoveryResponder : public QObject {
    Q_OBJECT

public:
    /// Who the device is; nobody answers while its \c tcpPort is 0.
    using Identity = std::function<ProtoModel::DeviceBaseInfo()>;

    explicit DiscoveryResponder(Identity identity, QObject *parent = nullptr);

    /// Shares \a port with other devices of this machine. False with a sentence in \a error when it
    /// cannot be had.
    bool listen(const QHostAddress &address, quint16 port, QString &error);
    quint16 port() const { return m_socket.localPort(); }

private:
    void answer();

    const Identity m_identity;
    QUdpSocket m_socket;
};

} // namespace Tavoro::Sim
