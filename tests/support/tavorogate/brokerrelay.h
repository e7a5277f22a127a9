#pragma once

#include <QTcpServer>
#include <QTcpSocket>

/// A port that leads to the broker, which a test can block.
class BrokerRelay {
public:
    explicit BrokerRelay(quint16 brokerPort) : m_brokerPort(brokerPort)
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket *client = m_server.nextPendingConnection())
                relay(*client);
        });
    }

    quint16 port() const { return m_server.serverPort(); }
    /// New connections wait until unblock().
    void block() { m_server.pauseAccepting(); }
    void unblock() { m_server.resumeAccepting(); }

private:
    void relay(QTcpSocket &client)
    {
        auto *const broker = new QTcpSocket(&client);
        join(client, *broker);
        join(*broker, client);
        QObject::connect(broker, &QTcpSocket::errorOccurred, &client, &QTcpSocket::abort);
        QObject::connect(&client, &QTcpSocket::disconnected, &client, &QObject::deleteLater);
        broker->connectToHost(QHostAddress::LocalHost, m_brokerPort);
    }
    static void join(QTcpSocket &from, QTcpSocket &to)
    {
        QObject::connect(&from, &QTcpSocket::readyRead, &to,
                         [&from, &to] { to.write(from.readAll()); });
        QObject::connect(&from, &QTcpSocket::disconnected, &to, &QTcpSocket::disconnectFromHost);
    }

    const quint16 m_brokerPort;
    QTcpServer m_server;
};
