#pragma once

#include <tavorossproxy/io/datagramsocket_p.h>

#include <QStringList>

/// A network for datagrams that a test controls. All on the loop's thread.
struct ManualNetwork {
    /// A datagram arrives.
    void deliver(const QString &address, std::string_view datagram) { receiver(address, datagram); }

    QStringList broadcasts; ///< Broadcast addresses of the connected networks.
    QStringList sent; ///< "ADDRESS:PORT BYTES" of each datagram, in order.
    int sockets = 0; ///< Sockets that are open.
    QString failure; ///< Why no further socket can be opened; empty: it can.
    Tavoro::SSProxy::Internal::DatagramSocket::Receiver receiver;
};

class ManualDatagramSocket final : public Tavoro::SSProxy::Internal::DatagramSocket {
public:
    explicit ManualDatagramSocket(ManualNetwork &network) : m_network(network) { }
    ~ManualDatagramSocket() override { m_network.sockets -= m_isOpen; }

    bool open(Receiver receiver, QString &error) override
    {
        error = m_network.failure;
        if (!error.isEmpty())
            return false;
        m_network.receiver = std::move(receiver);
        m_isOpen = true;
        ++m_network.sockets;
        return true;
    }
    void send(const QString &address, quint16 port, const QByteArray &datagram) override
    {
        m_network.sent.append(
            QStringLiteral("%1:%2 %3").arg(address).arg(port).arg(QString::fromUtf8(datagram)));
    }
    QStringList broadcastAddresses() const override { return m_network.broadcasts; }

private:
    ManualNetwork &m_network;
    bool m_isOpen = false;
};
