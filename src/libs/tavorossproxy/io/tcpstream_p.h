#pragma once

#include "bytestream_p.h"

#include <QObject>
#include <QString>
#include <QtGlobal>

#include <memory>
#include <vector>

class QTcpSocket;

namespace Tavoro::SSProxy::Internal {

/// A stream over TCP. Uses a new socket for each connection.
class TcpStream final : public ByteStream {
public:
    TcpStream(const QString &host, quint16 port);
    ~TcpStream() override;

    void open(Events &events) override;
    void close() override;
    void write(const QByteArray &bytes) override;
    bool setPeer(const QString &host, quint16 port) override;
    qint64 unsentBytes() const override;

private:
    void connectSignals(Events &events);
    void receive(Events &events);
    void fail(Events &events);
    std::string peerAddress() const;

    QString m_host;
    quint16 m_port;
    Events *m_events = nullptr; ///< Receiver of the last connection's events; outlives it.
    std::unique_ptr<QTcpSocket> m_socket; ///< Null without a connection and an attempt.
    bool m_hasFailed = false; ///< A write has failed; streamClosed() follows.
    /// Context of delayed calls, which must not run after the stream was destroyed. The socket
    /// cannot be the context: a closed one may live longer.
    std::unique_ptr<QObject> m_callContext;
    std::vector<char> m_received; ///< Receive buffer, reused so that it stays in the cache.
};

} // namespace Tavoro::SSProxy::Internal
