#include "packetassembler.h"

#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>

#include <algorithm>
#include <cstring>

namespace Tavoro::Sim {

using SSProxy::Wire::WireHead;

namespace {

PacketAssembler::Packet emptyAnswer(const WireHead &request, DeviceStatus status)
{
    PacketAssembler::Packet packet{SSProxy::Wire::responseHead(request), {}};
    packet.head.status = static_cast<quint8>(status);
    return packet;
}

bool isOfType(const WireHead &head, CommandType type)
{
    return head.type == static_cast<quint8>(type);
}

bool areOfOneExchange(const WireHead &a, const WireHead &b)
{
    return a.type == b.type && a.code() == b.code()
        && std::memcmp(a.arg2, b.arg2, sizeof a.arg2) == 0;
}

template <class Streams>
auto findStream(Streams &streams, quint16 number)
{
    return std::find_if(streams.begin(), streams.end(),
                        [&](const auto &stream) { return stream.first.stream == number; });
}

template <class Streams>
void forgetStream(Streams &streams, const WireHead &head)
{
    const auto stream = findStream(streams, head.stream);
    if (stream != streams.end())
        streams.erase(stream);
}

template <class Streams, class Stream>
void keepStream(Streams &streams, Stream stream)
{
    streams.push_back(std::move(stream));
    if (streams.size() > PacketAssembler::mostStreams)
        streams.pop_front();
}

} // namespace

PacketAssembler::PacketAssembler(quint32 packetSize, CarryOut carryOut)
    : m_packetSize(packetSize), m_carryOut(std::move(carryOut))
{ }

PacketAssembler::Packet PacketAssembler::answer(const WireHead &head, std::string body)
{
    if (body.size() > m_packetSize)
        return emptyAnswer(head, DeviceStatus::BodyTooLong);
    if (isOfType(head, CommandType::BinaryWrite))
        return answerWhole(head, std::move(body));
    if (isOfType(head, CommandType::Write))
        return head.totalCount > 1 ? collect(head, std::move(body))
                                   : answerWhole(head, std::move(body));
    return head.sendCount > 0 ? handOut(head) : answerWhole(head, std::move(body));
}

PacketAssembler::Packet PacketAssembler::answerWhole(const WireHead &head, std::string body)
{
    Request request;
    request.command = static_cast<Command>(head.code());
    request.type = static_cast<CommandType>(head.type);
    std::copy(std::begin(head.arg2), std::end(head.arg2), request.arg2.begin());
    request.body = std::move(body);
    request.totalCount = std::max(head.totalCount, 1u);
    request.sendCount = head.sendCount;
    request.uploads = &m_uploads;
    Answer answer = m_carryOut(request);
    forgetStream(m_answers, head);
    if (answer.status != DeviceStatus::Success)
        return emptyAnswer(head, answer.status);

    Stream stream{head, 1, 1, std::move(answer.body), std::move(answer.content)};
    const std::size_t length = lengthOf(stream);
    if (length > m_packetSize)
        stream.totalCount = static_cast<quint32>((length + m_packetSize - 1) / m_packetSize);
    Packet first = piece(head, stream, 0);
    if (stream.totalCount > 1) {
        keepStream(m_answers, std::move(stream));
        m_handedOut = quint16{head.stream}; // the field is packed: no reference to it
    }
    return first;
}

PacketAssembler::Packet PacketAssembler::collect(const WireHead &head, std::string body)
{
    auto stream = findStream(m_writes, head.stream);
    if (head.sendCount == 0) {
        forgetStream(m_writes, head);
        keepStream(m_writes, Stream{head, 1, head.totalCount, std::move(body), nullptr});
        return emptyAnswer(head, DeviceStatus::Success);
    }
    if (stream == m_writes.end())
        return emptyAnswer(head, DeviceStatus::WrongPacket);
    if (head.sendCount != stream->next || head.totalCount != stream->totalCount
        || !areOfOneExchange(head, stream->first)) {
        m_writes.erase(stream);
        return emptyAnswer(head, DeviceStatus::WrongPacket);
    }
    if (stream->body.size() + body.size() > longestWrite) {
        m_writes.erase(stream);
        return emptyAnswer(head, DeviceStatus::BodyTooLong);
    }
    stream->body += body;
    if (++stream->next < stream->totalCount)
        return emptyAnswer(head, DeviceStatus::Success);
    std::string whole = std::move(stream->body);
    m_writes.erase(stream);
    return answerWhole(head, std::move(whole));
}

PacketAssembler::Packet PacketAssembler::handOut(const WireHead &head)
{
    const auto stream = findStream(m_answers, head.stream);
    if (stream == m_answers.end() || !areOfOneExchange(head, stream->first))
        return emptyAnswer(head, DeviceStatus::NoSuchStream);
    if (head.sendCount != stream->next || head.totalCount != stream->totalCount)
        return emptyAnswer(head, DeviceStatus::WrongPacket);
    Packet packet = piece(head, *stream, stream->next);
    m_handedOut = quint16{head.stream}; // the field is packed: no reference to it
    if (++stream->next == stream->totalCount)
        m_answers.erase(stream);
    return packet;
}

PacketAssembler::Packet PacketAssembler::piece(const WireHead &request, Stream &stream,
                                               quint32 index) const
{
    Packet packet{SSProxy::Wire::responseHead(request), {}};
    packet.head.totalCount = stream.totalCount;
    packet.head.sendCount = index;
    if (stream.ahead) {
        packet.body = std::move(stream.ahead->body);
        packet.checksum = stream.ahead->checksum;
        stream.ahead.reset();
    } else {
        packet.body = cut(stream, std::size_t{index} * m_packetSize);
    }
    return packet;
}

void PacketAssembler::readAhead()
{
    if (!m_handedOut)
        return;
    const auto stream = findStream(m_answers, *m_handedOut);
    m_handedOut.reset();
    if (stream == m_answers.end() || !stream->content || stream->ahead)
        return;
    std::string body = cut(*stream, std::size_t{stream->next} * m_packetSize);
    const quint32 checksum = SSProxy::Wire::crc32(body);
    stream->ahead = Piece{std::move(body), checksum};
}

std::size_t PacketAssembler::lengthOf(const Stream &stream) const
{
    return stream.content ? static_cast<std::size_t>(stream.content->size()) : stream.body.size();
}

std::string PacketAssembler::cut(const Stream &stream, std::size_t offset) const
{
    if (!stream.content)
        return stream.body.substr(offset, m_packetSize);
    std::string bytes(std::min<std::size_t>(m_packetSize, lengthOf(stream) - offset), '\0');
    stream.content->seek(static_cast<qint64>(offset));
    stream.content->read(bytes.data(), static_cast<qint64>(bytes.size()));
    return bytes;
}

} // namespace Tavoro::Sim
