#include "discoveryresponder.h"

#include <tavorosim/state/simlog.h>
#include <tavorosim/state/texts.h>
#include <tavorowire/discovery.h>
#include <tavorowire/hostandport.h>

#include <QNetworkDatagram>

namespace Tavoro::Sim {

DiscoveryResponder::DiscoveryResponder(Identity identity, QObject *parent)
    : QObject(parent), m_identity(std::move(identity)), m_socket(this), m_loopbackBroadcasts(this)
{
    for (QUdpSocket *const socket : {&m_socket, &m_loopbackBroadcasts})
        connect(socket, &QUdpSocket::readyRead, this, [this, socket] { answer(*socket); });
}

bool DiscoveryResponder::listen(const QHostAddress &address, quint16 port, QString &error)
{
    if (!bind(m_socket, address, port, error))
        return false;
    const bool isLoopback =
        address.isLoopback() && address.protocol() == QAbstractSocket::IPv4Protocol;
    return !isLoopback
        || bind(m_loopbackBroadcasts, QHostAddress(QStringLiteral("127.255.255.255")),
                m_socket.localPort(), error);
}

bool DiscoveryResponder::bind(QUdpSocket &socket, const QHostAddress &address, quint16 port,
                              QString &error)
{
    if (socket.bind(address, port, QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint))
        return true;
    error = Texts::tr("cannot listen for discovery requests on %1: %2")
                .arg(SSProxy::Wire::hostAndPort(address.toString(), port), socket.errorString());
    return false;
}

/// Answers from the address of the device, since clients connect to the address of the answer.
void DiscoveryResponder::answer(QUdpSocket &socket)
{
    while (socket.hasPendingDatagrams()) {
        const QNetworkDatagram question = socket.receiveDatagram();
        const QByteArray bytes = question.data();
        const ProtoModel::DeviceBaseInfo device = m_identity();
        if (device.tcpPort == 0
            || !SSProxy::Wire::isDiscoveryRequest(
                {bytes.constData(), static_cast<std::size_t>(bytes.size())}))
            continue;
        const QHostAddress seeker = question.senderAddress();
        const auto port = static_cast<quint16>(question.senderPort());
        m_socket.writeDatagram(SSProxy::Wire::encodeDiscoveryAnswer(device), seeker, port);
        qCInfo(simLog, "found by %s",
               qUtf8Printable(SSProxy::Wire::hostAndPort(seeker.toString(), port)));
    }
}

} // namespace Tavoro::Sim
