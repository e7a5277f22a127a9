#include "udpsocket_p.h"

#include "addresstext_p.h"
#include <tavorossproxy/logging_p.h>

#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QUdpSocket>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Most datagrams in a row before other sockets are served. The socket emits readyRead() again if
/// more are left.
constexpr int maxDatagrams = 32;

} // namespace

UdpSocket::UdpSocket() = default;
UdpSocket::~UdpSocket() = default;

bool UdpSocket::open(Receiver receiver, QString &error)
{
    m_socket = std::make_unique<QUdpSocket>();
    m_socket->setProxy(QNetworkProxy::NoProxy);
    // QHostAddress spelled out: Qt 5 converts the bare enumerator to a port number.
    if (!m_socket->bind(QHostAddress(QHostAddress::AnyIPv4))) {
        error = m_socket->errorString();
        return false;
    }
    QObject::connect(m_socket.get(), &QUdpSocket::readyRead, m_socket.get(),
                     [this, receiver = std::move(receiver)] { receive(receiver); });
    return true;
}

void UdpSocket::send(const QString &address, quint16 port, const QByteArray &datagram)
{
    const QHostAddress target(address);
    // Qt would send a datagram with an invalid address to this machine.
    if (target.protocol() != QAbstractSocket::IPv4Protocol)
        qCDebug(channelLog) << "Cannot send a discovery request to" << address
                            << "as it is not an IPv4 address";
    else if (m_socket->writeDatagram(datagram, target, port) < 0)
        qCDebug(channelLog) << "Cannot send a discovery request to" << address
                            << m_socket->errorString();
}

QStringList UdpSocket::broadcastAddresses() const
{
    QStringList addresses;
    for (const QNetworkInterface &network : QNetworkInterface::allInterfaces()) {
        const auto flags = network.flags();
        if (!(flags & QNetworkInterface::IsUp))
            continue;
        if (flags & QNetworkInterface::IsLoopBack)
            addresses.append(QStringLiteral("127.255.255.255"));
        if (!(flags & QNetworkInterface::CanBroadcast))
            continue;
        for (const QNetworkAddressEntry &entry : network.addressEntries()) {
            if (!entry.broadcast().isNull())
                addresses.append(entry.broadcast().toString());
        }
    }
    return addresses;
}

/// \a receiver must not destroy the socket.
void UdpSocket::receive(const Receiver &receiver)
{
    for (int received = 0; received < maxDatagrams && m_socket->hasPendingDatagrams(); ++received) {
        const QNetworkDatagram datagram = m_socket->receiveDatagram();
        const QByteArray bytes = datagram.data();
        receiver(addressText(datagram.senderAddress()),
                 {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
}

} // namespace Tavoro::SSProxy::Internal
