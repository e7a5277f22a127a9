#pragma once

#include <QTcpServer>
#include <QTcpSocket>

/// A port that leads to a broker or a device, which a test can block.
class PortRelay {
public:
    explicit PortRelay(quint16 target) : m_target(target)
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
    /// Ends all connections.
    void cut()
    {
        const auto clients =
            m_server.findChildren<QTcpSocket *>(QString(), Qt::FindDirectChildrenOnly);
        for (QTcpSocket *const client : clients)
            client->abort();
    }

private:
    void relay(QTcpSocket &client)
    {
        auto *const target = new QTcpSocket(&client);
        join(client, *target);
        join(*target, client);
        QObject::connect(target, &QTcpSocket::errorOccurred, &client, &QTcpSocket::abort);
        QObject::connect(&client, &QTcpSocket::disconnected, &client, &QObject::deleteLater);
        target->connectToHost(QHostAddress::LocalHost, m_target);
    }
    static void join(QTcpSocket &from, QTcpSocket &to)
    {
        QObject::connect(&from, &QTcpSocket::readyRead, &to,
                         [&from, &to] { to.write(from.readAll()); });
        QObject::connect(&from, &QTcpSocket::disconnected, &to, &QTcpSocket::disconnectFromHost);
    }

    const quint16 m_target;
    QTcpServer m_server;
};
