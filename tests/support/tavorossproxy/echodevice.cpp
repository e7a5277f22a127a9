#include "echodevice.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <string_view>

using namespace Tavoro::SSProxy;

namespace {

constexpr char identity[] = R"({"protocolVersion":1,"sn":"0123456789ABCDEF","mac":"02005E100001",)"
                            R"("maxPacketSize":16777216,"name":"wall"})";

} // namespace

EchoDevice::EchoDevice()
{
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server,
                     [this] { takeConnection(); });
    m_server.listen(QHostAddress::LocalHost);
}

int EchoDevice::connections() const
{
    return int(m_server.findChildren<QTcpSocket *>().size());
}

qint64 EchoDevice::unsentBytes() const
{
    qint64 sum = 0;
    for (const auto *socket : m_server.findChildren<QTcpSocket *>())
        sum += socket->bytesToWrite();
    return sum;
}

void EchoDevice::send(Wire::FrameKind kind, const QByteArray &body)
{
    Wire::WireHead head;
    head.kind = static_cast<quint8>(kind);
    head.BC = 0x11;
    head.FC = 0x03;
    for (auto *socket : m_server.findChildren<QTcpSocket *>())
        socket->write(Wire::encodeFrame(head, body.toStdString()));
}

void EchoDevice::dropConnections()
{
    for (auto *socket : m_server.findChildren<QTcpSocket *>())
        socket->abort();
}

void EchoDevice::endConnections()
{
    for (auto *socket : m_server.findChildren<QTcpSocket *>())
        socket->disconnectFromHost();
}

void EchoDevice::takeConnection()
{
    QTcpSocket *socket = m_server.nextPendingConnection();
    socket->setReadBufferSize(64 * 1024); // a long request never arrives in one piece
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    auto parser = std::make_shared<Wire::FrameParser>();
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, parser] {
        const QByteArray received = socket->readAll();
        if (dropsNextRequest)
            return socket->abort();
        std::string_view bytes(received.constData(), std::size_t(received.size()));
        while (auto frame = parser->next(bytes))
            socket->write(answerTo(*frame));
    });
}

/// A report, or nothing.
QByteArray EchoDevice::report() const
{
    Wire::WireHead head;
    head.kind = static_cast<quint8>(Wire::FrameKind::Report);
    return reportsBeforeAnswers ? Wire::encodeFrame(head, "{}") : QByteArray();
}

QByteArray EchoDevice::answerTo(const Wire::FrameEvent &frame)
{
    Wire::WireHead head = Wire::responseHead(frame.head);
    switch (static_cast<Wire::FrameKind>(frame.head.kind)) {
    case Wire::FrameKind::IdentityRequest:
        head.kind = static_cast<quint8>(Wire::FrameKind::IdentityAnswer);
        return Wire::encodeFrame(head, identity);
    case Wire::FrameKind::Request:
        if (!frame.body.empty())
            return report() + Wire::encodeFrame(head, frame.body);
        ++silentRequests;
        return {};
    default:
        return {};
    }
}

std::shared_ptr<DeviceRequestCommand> request(const std::string &body)
{
    auto command = std::make_shared<DeviceRequestCommand>();
    command->head().type = 2;
    command->body() = body;
    return command;
}

std::future<Answer> sendFromAThread(const std::shared_ptr<DeviceChannel> &channel,
                                    const std::string &body)
{
    return std::async(std::launch::async, [=] { return channel->sendSyncRequest(request(body)); });
}
