#include "tcpstream_p.h"

#include "addresstext_p.h"
#include "connectedsocket_p.h"

#include <QNetworkProxy>
#include <QTcpSocket>

#include <cerrno>
#include <fcntl.h>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Most reads in a row before other sockets are served. The poll reports what is left.
constexpr int maxReads = 32;

/// Without an error, or if a packet has shown that the peer does not know the connection any more.
bool isClosedByPeer(int error)
{
    return error == 0 || error == ECONNRESET || error == EPIPE;
}

} // namespace

TcpStream::TcpStream(const QString &host, quint16 port) : m_host(host), m_port(port) { }

TcpStream::~TcpStream()
{
    close();
}

void TcpStream::open(Events &events)
{
    close();
    m_events = &events;
    m_attempt = std::make_unique<QTcpSocket>();
    QTcpSocket *const attempt = m_attempt.get();
    attempt->setProxy(QNetworkProxy::NoProxy); // devices are on the local network
    QObject::connect(attempt, &QTcpSocket::connected, attempt, [this] { takeOver(); });
    QObject::connect(attempt, &QTcpSocket::errorOccurred, attempt,
                     [this, attempt] { fail(attempt->errorString()); });
    attempt->connectToHost(m_host, m_port);
}

/// May be called from a signal of the attempt, so its socket itself is deleted later.
void TcpStream::close()
{
    if (m_attempt) {
        m_attempt->disconnect();
        m_attempt->abort();
        m_attempt.release()->deleteLater();
    }
    if (const auto socket = std::exchange(m_socket, nullptr))
        socket->end();
}

void TcpStream::write(const QByteArray &bytes)
{
    if (m_socket)
        m_socket->send(bytes);
}

bool TcpStream::setPeer(const QString &host, quint16 port)
{
    if (host == m_host && port == m_port)
        return false;
    m_host = host;
    m_port = port;
    return true;
}

qint64 TcpStream::unsentBytes() const
{
    return m_socket ? m_socket->unsentBytes() : 0;
}

/// Qt's socket closes its own descriptor and leaves the connection to the duplicate.
void TcpStream::takeOver()
{
    m_attempt->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    const std::string address = addressText(m_attempt->peerAddress()).toStdString();
    const int descriptor =
        ::fcntl(static_cast<int>(m_attempt->socketDescriptor()), F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0)
        return fail(qt_error_string(errno));
    close();
    SocketPoll::Watcher &watcher = *this;
    m_socket = std::make_shared<ConnectedSocket>(descriptor, watcher, *m_events);
    m_events->streamOpened(address);
}

void TcpStream::socketReady()
{
    const auto socket = m_socket;
    if (socket->sendWaiting())
        m_events->streamDrained();
    if (m_socket == socket)
        receive();
}

void TcpStream::receive()
{
    const auto socket = m_socket;
    for (int reads = 0; reads < maxReads && m_socket == socket; ++reads) {
        switch (socket->receive()) {
        case ConnectedSocket::Received::Bytes:
            m_events->streamBatchEnded();
            break;
        case ConnectedSocket::Received::Nothing:
            return;
        case ConnectedSocket::Received::End:
            return fail(isClosedByPeer(socket->error())
                            ? tr("The remote host closed the connection")
                            : qt_error_string(socket->error()));
        }
    }
}

void TcpStream::fail(const QString &reason)
{
    close();
    m_events->streamClosed(reason);
}

} // namespace Tavoro::SSProxy::Internal
