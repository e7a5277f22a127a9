#pragma once

#include "bytestream_p.h"
#include "socketpoll_p.h"

#include <QCoreApplication>
#include <QString>
#include <QtGlobal>

#include <memory>
#include <string>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace Tavoro::SSProxy::Internal {

/// A stream over TCP. Qt connects; the connected socket is then read and written without Qt, so
/// that callers can do so on their own threads.
class TcpStream final : public ByteStream, private SocketPoll::Watcher {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::TcpStream)

public:
    TcpStream(const QString &host, quint16 port);
    ~TcpStream() override;

    void open(Events &events) override;
    void close() override;
    void write(const QByteArray &bytes) override;
    bool setPeer(const QString &host, quint16 port) override;
    qint64 unsentBytes() const override;
    std::shared_ptr<ConnectedSocket> socket() const override { return m_socket; }

private:
    void socketReady() override;
    void takeOver();
    void receive();
    void fail(const QString &reason);

    QString m_host;
    quint16 m_port;
    Events *m_events = nullptr; ///< Receiver of the last connection's events; outlives it.
    std::unique_ptr<QTcpSocket> m_attempt; ///< Null unless the stream is connecting.
    std::shared_ptr<ConnectedSocket> m_socket; ///< Null without a connection.
};

} // namespace Tavoro::SSProxy::Internal
