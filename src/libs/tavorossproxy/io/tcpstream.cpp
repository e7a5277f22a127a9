#include "tcpstream_p.h"

#include "addresstext_p.h"

#include <QNetworkProxy>
#include <QTcpSocket>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Longer than the packets of common devices, which so come in one piece with their head.
constexpr std::size_t receivedAtOnce = 128u << 10;

/// After so many reads it is the turn of others; the socket tells again that there is more.
constexpr int mostRounds = 32;

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
    if (!m_presence)
        m_presence = std::make_unique<QObject>();
    m_socket = std::make_unique<QTcpSocket>();
    m_socket->setProxy(QNetworkProxy::NoProxy); // devices are near
    connectSignals(events);
    // What is sent and received goes past the buffers of the socket: frames are long and whole.
    m_socket->connectToHost(m_host, m_port, QIODevice::ReadWrite | QIODevice::Unbuffered);
}

/// May be called from a signal of the socket, so the socket itself goes later.
void TcpStream::close()
{
    if (!m_socket)
        return;
    m_socket->disconnect();
    m_socket->abort();
    m_socket.release()->deleteLater();
}

/// An unbuffered socket that finds the connection lost while it sends tells nobody, and does not
/// look for what comes any more either. Whoever is sending is not told in the middle of it.
void TcpStream::write(const QByteArray &bytes)
{
    if (!m_socket || m_socket->write(bytes) >= 0)
        return;
    const auto failLater = [this, socket = m_socket.get()] {
        if (m_socket.get() == socket)
            fail(*m_events);
    };
    QMetaObject::invokeMethod(m_presence.get(), failLater, Qt::QueuedConnection);
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
    for (int round = 0; round < mostRounds && m_socket && m_socket.get() == socket; ++round) {
        const auto room = static_cast<qint64>(m_received.size());
        const qint64 count = m_socket->read(m_received.data(), room);
        if (count < 0)
            return fail(events); // the socket itself does not tell
        if (count > 0)
            events.streamReceived({m_received.data(), static_cast<std::size_t>(count)});
        if (count < room)
            return; // for now it is empty
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
