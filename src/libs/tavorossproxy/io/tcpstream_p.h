#pragma once

#include "bytestream_p.h"

#include <QObject>
#include <QString>
#include <QtGlobal>

#include <memory>
#include <vector>

class QTcpSocket;

namespace Tavoro::SSProxy::Internal {

/// A stream over a TCP socket, which is made anew for each connection.
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
    Events *m_events = nullptr; ///< Of the last connection; outlives it.
    std::unique_ptr<QTcpSocket> m_socket;
    /// What is to be told later goes with the stream: a socket that was closed stays for a while.
    std::unique_ptr<QObject> m_presence;
    std::vector<char> m_received; ///< What was read last; kept so that it stays in the cache.
};

} // namespace Tavoro::SSProxy::Internal
