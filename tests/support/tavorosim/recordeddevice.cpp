#include "recordeddevice.h"

#include <tavorossproxy/commandcodes.h>
#include <tavorowire/frame.h>

#include <QFile>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <cstring>
#include <utility>

using namespace Tavoro::SSProxy;
using Wire::CapturedKind;
using Wire::FrameKind;
using Wire::WireHead;

namespace {

bool isOfKind(const Wire::FrameEvent &frame, FrameKind kind)
{
    return frame.status == 0 && frame.head.kind == static_cast<quint8>(kind);
}

bool isRequest(const Wire::FrameEvent &frame)
{
    return isOfKind(frame, FrameKind::Request) || isOfKind(frame, FrameKind::IdentityRequest);
}

bool isKeepAlive(const Wire::FrameEvent &frame)
{
    return isOfKind(frame, FrameKind::Ping) || isOfKind(frame, FrameKind::Pong);
}

/// Whether the body differs in every session: it holds the ID of the connection, or the time.
bool isOfTheMoment(const WireHead &head)
{
    const auto command = static_cast<Command>(head.code());
    return head.kind == static_cast<quint8>(FrameKind::IdentityRequest)
        || (command == Command::AuxiliaryDeviceTime && head.type == quint8(CommandType::Write));
}

/// Whether two requests are the same. Tags and streams are not compared, since the channel chooses
/// them.
bool asksTheSame(const Wire::FrameEvent &a, const Wire::FrameEvent &b)
{
    return a.head.kind == b.head.kind && a.head.type == b.head.type
        && a.head.code() == b.head.code()
        && std::memcmp(a.head.arg2, b.head.arg2, sizeof a.head.arg2) == 0
        && a.head.totalCount == b.head.totalCount && a.head.sendCount == b.head.sendCount
        && (a.body == b.body || isOfTheMoment(a.head));
}

std::vector<Wire::CapturedItem> itemsOf(const QString &path)
{
    QFile file(path);
    std::vector<Wire::CapturedItem> items;
    std::string error;
    if (!file.open(QIODevice::ReadOnly)
        || !Wire::decodeCapture(file.readAll().toStdString(), items, error))
        qFatal("%s: %s", qUtf8Printable(path), error.c_str());
    return items;
}

} // namespace

class RecordedDevice::Recorder {
public:
    explicit Recorder(RecordedDevice &device) : m_device(device) { }

    void take(const Item &item);
    void endConnection(bool isLoss);

private:
    using Iterator = std::vector<Exchange>::iterator;

    void takeFromDevice(const Item &item);
    /// The exchanges of this connection.
    Iterator begin() const;
    Iterator end() const { return m_device.m_exchanges.end(); }
    Iterator waitingFor(const WireHead &head) const;
    bool isAnyWaiting() const;

    RecordedDevice &m_device;
    std::size_t m_first = 0; ///< The first exchange of this connection.
    std::size_t m_answered = 0; ///< The exchange that was answered last.
    std::vector<std::string> m_unsent; ///< Received while a request waited, but not its answer.
};

RecordedDevice::Recorder::Iterator RecordedDevice::Recorder::begin() const
{
    return m_device.m_exchanges.begin() + static_cast<std::ptrdiff_t>(m_first);
}

void RecordedDevice::Recorder::take(const Item &item)
{
    if (item.kind == CapturedKind::Opened || item.kind == CapturedKind::Closed)
        return endConnection(false);
    if (item.kind == CapturedKind::Lost)
        return endConnection(true);
    if (!item.isFromClient)
        return takeFromDevice(item);
    if (!isRequest(item.frame))
        return;
    m_device.m_exchanges.emplace_back();
    m_device.m_exchanges.back().request = item.frame;
}

void RecordedDevice::Recorder::takeFromDevice(const Item &item)
{
    if (isKeepAlive(item.frame))
        return;
    const bool isWhole = item.kind == CapturedKind::Frame && !item.frame.fatal;
    const auto waiting = isWhole ? waitingFor(item.frame.head) : end();
    if (waiting != end()) {
        waiting->answers = std::exchange(m_unsent, {});
        waiting->answers.push_back(item.bytes);
        m_answered = static_cast<std::size_t>(waiting - m_device.m_exchanges.begin());
    } else if (!isWhole || isAnyWaiting()) {
        m_unsent.push_back(item.bytes);
    } else if (begin() != end()) {
        m_device.m_exchanges[m_answered].answers.push_back(item.bytes);
    }
    if (isOfKind(item.frame, FrameKind::IdentityAnswer) && isWhole)
        m_device.m_identity = item.bytes;
}

void RecordedDevice::Recorder::endConnection(bool isLoss)
{
    End end{0, std::move(m_unsent), isLoss};
    const auto takeEnd = [&](Exchange &exchange) {
        exchange.end = static_cast<int>(m_device.m_ends.size());
        ++end.due;
    };
    for (auto exchange = begin(); exchange != this->end(); ++exchange) {
        if (exchange->answers.empty())
            takeEnd(*exchange);
    }
    if (end.due == 0 && begin() != this->end())
        takeEnd(m_device.m_exchanges[m_answered]);
    m_device.m_ends.push_back(std::move(end));
    m_first = m_answered = m_device.m_exchanges.size();
    m_unsent.clear();
}

/// The first unanswered exchange that a frame with this head can answer.
RecordedDevice::Recorder::Iterator RecordedDevice::Recorder::waitingFor(const WireHead &head) const
{
    if (head.kind == static_cast<quint8>(FrameKind::Report))
        return end();
    return std::find_if(begin(), end(), [&](const Exchange &exchange) {
        return exchange.answers.empty() && exchange.request.head.lables == head.lables;
    });
}

bool RecordedDevice::Recorder::isAnyWaiting() const
{
    return std::any_of(begin(), end(),
                       [](const Exchange &exchange) { return exchange.answers.empty(); });
}

RecordedDevice::RecordedDevice(const QString &path, int channel)
{
    Recorder recorder(*this);
    for (const Item &item : itemsOf(path)) {
        if (item.channel == channel)
            recorder.take(item);
    }
    recorder.endConnection(false);
    m_unplayed = static_cast<int>(
        std::count_if(m_exchanges.begin(), m_exchanges.end(), [](const Exchange &exchange) {
            return isOfKind(exchange.request, FrameKind::Request);
        }));
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

void RecordedDevice::serve()
{
    QTcpSocket *const socket = m_server->nextPendingConnection();
    auto parser = std::make_shared<Wire::FrameParser>();
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, parser] {
        const QByteArray received = socket->readAll();
        std::string_view bytes(received.constData(), static_cast<std::size_t>(received.size()));
        while (const auto frame = parser->next(bytes)) {
            if (isRequest(*frame))
                answer(*socket, *frame);
        }
    });
}

void RecordedDevice::answer(QTcpSocket &socket, const FrameEvent &request)
{
    const auto exchange =
        std::find_if(m_exchanges.begin(), m_exchanges.end(), [&](const Exchange &candidate) {
            return !candidate.isPlayed && asksTheSame(candidate.request, request);
        });
    if (exchange != m_exchanges.end())
        play(socket, *exchange, request.head);
    else if (isOfKind(request, FrameKind::IdentityRequest))
        send(socket, {m_identity});
    else
        ++m_surprises;
}

void RecordedDevice::play(QTcpSocket &socket, Exchange &exchange, const WireHead &request)
{
    const WireHead &recorded = exchange.request.head;
    m_tags[recorded.lables] = {recorded.stream, request.stream, request.lables, recorded.number,
                               request.number};
    exchange.isPlayed = true;
    if (isOfKind(exchange.request, FrameKind::Request))
        --m_unplayed;
    send(socket, exchange.answers);
    if (exchange.end < 0)
        return;
    End &end = m_ends[static_cast<std::size_t>(exchange.end)];
    if (--end.due > 0)
        return;
    send(socket, end.rest);
    if (end.isLoss)
        socket.disconnectFromHost();
}

void RecordedDevice::send(QTcpSocket &socket, const std::vector<std::string> &frames) const
{
    for (const std::string &frame : frames) {
        const std::string bytes = retagged(frame);
        socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }
}

/// Renews the checksum of the head if it was correct.
std::string RecordedDevice::retagged(std::string frame) const
{
    WireHead head;
    if (frame.size() < sizeof head)
        return frame;
    std::memcpy(&head, frame.data(), sizeof head);
    const Tag &tag = m_tags[head.lables];
    if (tag.lables == 0)
        return frame;
    const bool isInOrder = head.headChecksum == Wire::headChecksum(head);
    head.lables = tag.lables;
    if (head.stream == tag.recordedStream)
        head.stream = tag.stream;
    if (head.number == tag.recordedNumber)
        head.number = tag.number;
    if (isInOrder)
        head.headChecksum = Wire::headChecksum(head);
    std::memcpy(frame.data(), &head, sizeof head);
    return frame;
}
