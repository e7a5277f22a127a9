#include "recordeddevice.h"

#include <tavorossproxy/wire/frame.h>

#include <QFile>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <cstring>

using namespace Tavoro::SSProxy;
using Wire::FrameKind;
using Wire::WireHead;

namespace {

bool isOfKind(const Wire::FrameEvent &frame, FrameKind kind)
{
    return frame.status == 0 && frame.head.kind == static_cast<quint8>(kind);
}

/// Tags and streams are the channel's choice and may be others this time.
bool asksTheSame(const Wire::FrameEvent &a, const Wire::FrameEvent &b)
{
    return a.head.type == b.head.type && a.head.code() == b.head.code()
        && std::memcmp(a.head.arg2, b.head.arg2, sizeof a.head.arg2) == 0
        && a.head.totalCount == b.head.totalCount && a.head.sendCount == b.head.sendCount
        && a.body == b.body;
}

} // namespace

RecordedDevice::RecordedDevice(const QString &path, int channel)
{
    QFile file(path);
    std::vector<Frame> frames;
    std::string error;
    if (!file.open(QIODevice::ReadOnly)
        || !Wire::decodeCapture(file.readAll().toStdString(), frames, error))
        qFatal("%s: %s", qUtf8Printable(path), error.c_str());
    frames.erase(std::remove_if(frames.begin(), frames.end(),
                                [channel](const Frame &frame) { return frame.channel != channel; }),
                 frames.end());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (isOfKind(frames[i].frame, FrameKind::IdentityAnswer))
            m_identity = frames[i].frame.body;
        if (isOfKind(frames[i].frame, FrameKind::Request))
            addExchange(frames, i);
    }
    m_unplayed = static_cast<int>(m_exchanges.size());
    m_thread.run([this] {
        m_server = std::make_unique<QTcpServer>();
        QObject::connect(m_server.get(), &QTcpServer::newConnection, m_server.get(),
                         [this] { serve(); });
        m_server->listen(QHostAddress::LocalHost);
        m_port = m_server->serverPort();
    });
}

RecordedDevice::~RecordedDevice()
{
    m_thread.run([this] { m_server.reset(); });
}

void RecordedDevice::addExchange(const std::vector<Frame> &frames, std::size_t index)
{
    Exchange exchange;
    exchange.request = frames[index].frame;
    std::size_t i = index; // from behind the response before
    while (i > 0 && !isOfKind(frames[i - 1].frame, FrameKind::Response))
        --i;
    for (; i < frames.size(); ++i) {
        const FrameEvent &frame = frames[i].frame;
        if (isOfKind(frame, FrameKind::Report))
            exchange.answers.push_back(frame);
        if (i < index || !isOfKind(frame, FrameKind::Response)
            || frame.head.lables != exchange.request.head.lables)
            continue;
        exchange.answers.push_back(frame);
        m_exchanges.push_back(std::move(exchange));
        return;
    }
}

void RecordedDevice::serve()
{
    QTcpSocket *const socket = m_server->nextPendingConnection();
    auto parser = std::make_shared<Wire::FrameParser>();
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, parser] {
        const QByteArray received = socket->readAll();
        std::string_view bytes(received.constData(), static_cast<std::size_t>(received.size()));
        while (const auto frame = parser->next(bytes))
            answer(*socket, *frame);
    });
}

void RecordedDevice::answer(QTcpSocket &socket, const FrameEvent &request)
{
    if (isOfKind(request, FrameKind::IdentityRequest)) {
        WireHead head;
        head.kind = static_cast<quint8>(FrameKind::IdentityAnswer);
        socket.write(Wire::encodeFrame(head, m_identity));
    }
    if (!isOfKind(request, FrameKind::Request))
        return;
    const auto exchange =
        std::find_if(m_exchanges.begin(), m_exchanges.end(), [&](const Exchange &candidate) {
            return !candidate.isPlayed && asksTheSame(candidate.request, request);
        });
    if (exchange == m_exchanges.end()) {
        ++m_surprises;
        return;
    }
    exchange->isPlayed = true;
    --m_unplayed;
    for (const FrameEvent &answer : exchange->answers) {
        WireHead head = answer.head;
        if (isOfKind(answer, FrameKind::Response)) {
            head.lables = request.head.lables;
            head.stream = request.head.stream;
        }
        socket.write(Wire::encodeFrame(head, answer.body));
    }
}
