#include "discoveryresponder.h"

#include <tavorosim/state/simlog.h>
#include <tavorowire/discovery.h>
#include <tavorowire/hostandport.h>

#include <QNetworkDatagram>

namespace Tavoro::Sim {

DiscoveryResponder::DiscoveryResponder(Identity identity, QObject *parent)
    : QObject(parent), m_identity(std::move(identity)), m_socket(this)
{
    connect(&m_socket, &QUdpSocket::readyRead, this, &DiscoveryResponder::answer);
}

bool DiscoveryResponder::listen(const QHostAddress &address, quint16 port, QString &error)
{
    if (m_socket.bind(address, port, QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint))
        return true;
    error = QStringLiteral("cannot listen for discovery requests on %1: %2")
                .arg(SSProxy::Wire::hostAndPort(address.toString(), port), m_socket.errorString());
    return false;
}

void DiscoveryResponder::answer()
{
    while (m_socket.hasPendingDatagrams()) {
        const QNetworkDatagram question = m_socket.receiveDatagram();
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
