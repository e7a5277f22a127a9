#pragma once

#include <tavorossproxy/io/datagramport_p.h>

#include <QStringList>

/// A network for datagrams in the hand of a test. All on the loop's thread.
struct ManualNetwork {
    /// A datagram comes in.
    void deliver(const QString &address, std::string_view datagram) { receiver(address, datagram); }

    QStringList broadcasts; ///< Of the networks that there are.
    QStringList sent; ///< "ADDRESS:PORT BYTES" of each datagram, in order.
    int ports = 0; ///< That are open.
    QString failure; ///< Why no further port opens; empty: it does.
    Tavoro::SSProxy::Internal::DatagramPort::Receiver receiver;
};

class ManualDatagramPort final : public Tavoro::SSProxy::Internal::DatagramPort {
public:
    explicit ManualDatagramPort(ManualNetwork &network) : m_network(network) { }
    ~ManualDatagramPort() override { m_network.ports -= m_isOpen; }

    bool open(Receiver receiver, QString &error) override
    {
        error = m_network.failure;
        if (!error.isEmpty())
            return false;
        m_network.receiver = std::move(receiver);
        m_isOpen = true;
        ++m_network.ports;
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
