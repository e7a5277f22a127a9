#pragma once

#include "datagramsocket_p.h"

#include <memory>

class QUdpSocket;

namespace Tavoro::SSProxy::Internal {

/// Sends and receives datagrams over UDP and IPv4.
class UdpSocket final : public DatagramSocket {
public:
    UdpSocket();
    ~UdpSocket() override;

    bool open(Receiver receiver, QString &error) override;
    void send(const QString &address, quint16 port, const QByteArray &datagram) override;
    QStringList broadcastAddresses() const override;

private:
    void receive(const Receiver &receiver);

    std::unique_ptr<QUdpSocket> m_socket;
};

} // namespace Tavoro::SSProxy::Internal
