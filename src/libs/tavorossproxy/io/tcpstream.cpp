#include "tcpstream_p.h"

#include "addresstext_p.h"

#include <QNetworkProxy>
#include <QTcpSocket>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Longer than the packets of common devices, so that one read returns a packet with its head.
constexpr std::size_t receivedAtOnce = 128u << 10;

/// Most reads in a row before other sockets are served. The socket emits readyRead() again if more
/// is left.
constexpr int maxRounds = 32;

} // namespace

TcpStream::TcpStream(const QString &host, quint16 port)
    : m_host(host), m_port(port), m_received(receivedAtOnce)
{ }

TcpStream::~TcpStream()
{
    close();
}

void TcpStream::open(Events &events)
{
    close();
    m_events = &events;
    if (!m_callContext)
        m_callContext = std::make_unique<QObject>();
    m_socket = std::make_unique<QTcpSocket>();
    m_hasFailed = false;
    m_socket->setProxy(QNetworkProxy::NoProxy); // devices are on the local network
    connectSignals(events);
    // Unbuffered: frames are long and complete, so a buffer would only copy them once more.
    m_socket->connectToHost(m_host, m_port, QIODevice::ReadWrite | QIODevice::Unbuffered);
}

/// May be called from a signal of the socket, so the socket itself is deleted later.
void TcpStream::close()
{
    if (!m_socket)
        return;
    m_socket->disconnect();
    m_socket->abort();
    m_socket.release()->deleteLater();
}

/// If an unbuffered socket finds while it sends that the connection is lost, it emits no signal,
/// stops reading, and logs a warning for each further write. So the failure is handled here.
/// streamClosed() is called later, not within the caller's call.
void TcpStream::write(const QByteArray &bytes)
{
    if (!m_socket || m_hasFailed || m_socket->write(bytes) >= 0)
        return;
    m_hasFailed = true;
    const auto failLater = [this, socket = m_socket.get()] {
        if (m_socket.get() == socket)
            fail(*m_events);
    };
    QMetaObject::invokeMethod(m_callContext.get(), failLater, Qt::QueuedConnection);
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
    return m_socket ? m_socket->bytesToWrite() : 0;
}

void TcpStream::connectSignals(Events &events)
{
    QTcpSocket *socket = m_socket.get();
    QObject::connect(socket, &QTcpSocket::connected, socket, [this, &events] {
        m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        events.streamOpened(peerAddress());
    });
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, &events] { receive(events); });
    QObject::connect(socket, &QTcpSocket::bytesWritten, socket, [this, &events] {
        if (m_socket->bytesToWrite() == 0)
            events.streamDrained();
    });
    QObject::connect(socket, &QTcpSocket::errorOccurred, socket, [this, &events] { fail(events); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, &events] { fail(events); });
}

void TcpStream::receive(Events &events)
{
    const QTcpSocket *const socket = m_socket.get();
    const auto isOpen = [this, socket] {
        return m_socket && m_socket.get() == socket && !m_hasFailed;
    };
    for (int round = 0; round < maxRounds && isOpen(); ++round) {
        const auto room = static_cast<qint64>(m_received.size());
        const qint64 count = m_socket->read(m_received.data(), room);
        if (count < 0)
            return fail(events); // the socket emits no signal for this
        if (count > 0)
            events.streamReceived({m_received.data(), static_cast<std::size_t>(count)});
        if (count < room)
            return; // nothing more has arrived yet
    }
}

void TcpStream::fail(Events &events)
{
    const QString reason = m_socket->errorString();
    close();
    events.streamClosed(reason);
}

std::string TcpStream::peerAddress() const
{
    return addressText(m_socket->peerAddress()).toStdString();
}

} // namespace Tavoro::SSProxy::Internal
