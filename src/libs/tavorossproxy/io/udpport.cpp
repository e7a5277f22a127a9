#include "udpport_p.h"

#include "addresstext_p.h"
#include <tavorossproxy/logging_p.h>

#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QUdpSocket>

namespace Tavoro::SSProxy::Internal {

namespace {

/// After so many datagrams it is the turn of others; the socket tells again that there are more.
constexpr int mostRounds = 32;

} // namespace

UdpPort::UdpPort() = default;
UdpPort::~UdpPort() = default;

bool UdpPort::open(Receiver receiver, QString &error)
{
    m_socket = std::make_unique<QUdpSocket>();
    m_socket->setProxy(QNetworkProxy::NoProxy);
    // Spelt out: of the bare enumerator Qt 5 makes a port number.
    if (!m_socket->bind(QHostAddress(QHostAddress::AnyIPv4))) {
        error = m_socket->errorString();
        return false;
    }
    QObject::connect(m_socket.get(), &QUdpSocket::readyRead, m_socket.get(),
                     [this, receiver = std::move(receiver)] { receive(receiver); });
    return true;
}

void UdpPort::send(const QString &address, quint16 port, const QByteArray &datagram)
{
    const QHostAddress target(address);
    // Without an address the datagram would go to this machine.
    if (target.protocol() != QAbstractSocket::IPv4Protocol)
        qCDebug(channelLog) << "Cannot ask for devices at" << address << "as it is not IPv4";
    else if (m_socket->writeDatagram(datagram, target, port) < 0)
        qCDebug(channelLog) << "Cannot ask for devices at" << address << m_socket->errorString();
}

QStringList UdpPort::broadcastAddresses() const
{
    QStringList addresses;
    for (const QNetworkInterface &network : QNetworkInterface::allInterfaces()) {
        const auto flags = network.flags();
        if (!(flags & QNetworkInterface::IsUp) || !(flags & QNetworkInterface::CanBroadcast))
            continue;
        for (const QNetworkAddressEntry &entry : network.addressEntries()) {
            if (!entry.broadcast().isNull())
                addresses.append(entry.broadcast().toString());
        }
    }
    return addresses;
}

/// The receiver must not end the port.
void UdpPort::receive(const Receiver &receiver)
{
    for (int round = 0; round < mostRounds && m_socket->hasPendingDatagrams(); ++round) {
        const QNetworkDatagram datagram = m_socket->receiveDatagram();
        const QByteArray bytes = datagram.data();
        receiver(addressText(datagram.senderAddress()),
                 {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
}

} // namespace Tavoro::SSProxy::Internal
