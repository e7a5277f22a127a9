#pragma once

#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTcpServer>
#include <QTimer>

#include <memory>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace Tavoro::Sim {

/// Accepts the connections of one port. Without a free file descriptor it pauses, logs that once,
/// and tries again every second.
///
/// QTcpServer only listens here: when it cannot accept, it may poll without a pause and without
/// acceptError().
class Listener : public QObject {
    Q_OBJECT

public:
    explicit Listener(QObject *parent = nullptr);

    /// \a port may be 0 for any free one. On failure \a error holds a sentence.
    bool open(const QHostAddress &address, quint16 port, QString &error);
    void close();
    bool isOpen() const { return m_server.isListening(); }
    /// 0 while it is closed.
    quint16 port() const { return m_server.serverPort(); }
    QHostAddress address() const { return m_server.serverAddress(); }

Q_SIGNALS:
    /// A client has connected. The receiver owns \a socket.
    void connected(QTcpSocket *socket);

private:
    void accept();
    void pause(int reason);
    void resume();

    QTcpServer m_server;
    std::unique_ptr<QSocketNotifier> m_notifier; ///< Null while it is closed.
    QTimer m_retry;
    bool m_isPaused = false; ///< Logged, and nothing was accepted since.
};

} // namespace Tavoro::Sim
