#include "packetassembler.h"

#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>

#include <QIODevice>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

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

template <class Streams>
std::size_t bytesIn(const Streams &streams)
{
    return std::accumulate(streams.begin(), streams.end(), std::size_t{0},
                           [](std::size_t sum, const auto &stream) {
                               const auto ahead = stream.ahead ? stream.ahead->frame.size() : 0;
                               return sum + stream.body.size() + static_cast<std::size_t>(ahead);
                           });
}

/// Fills the bytes that cannot be read with zeros.
void readContent(QIODevice &content, std::size_t offset, char *bytes, std::size_t size)
{
    content.seek(static_cast<qint64>(offset));
    const qint64 count = std::max(content.read(bytes, static_cast<qint64>(size)), qint64{0});
    std::fill(bytes + count, bytes + size, '\0');
}

} // namespace

std::string_view PacketAssembler::Packet::bytes() const
{
    if (frame.isEmpty())
        return body;
    return {frame.constData() + sizeof head, static_cast<std::size_t>(frame.size()) - sizeof head};
}

void PacketAssembler::Packet::unpack()
{
    if (frame.isEmpty())
        return;
    body = bytes();
    frame.clear();
}

PacketAssembler::PacketAssembler(quint32 packetSize, CarryOut carryOut)
    : m_packetSize(packetSize), m_carryOut(std::move(carryOut))
{ }

PacketAssembler::Packet PacketAssembler::answer(const WireHead &head, std::string body)
{
    if (body.size() > m_packetSize) {
        forgetStream(m_writes, head);
        return emptyAnswer(head, DeviceStatus::BodyTooLong);
    }
    return head.sendCount == 0 ? answerFirst(head, std::move(body))
                               : answerFurther(head, std::move(body));
}

/// A packet that begins an exchange.
PacketAssembler::Packet PacketAssembler::answerFirst(const WireHead &head, std::string body)
{
    if (isOfType(head, CommandType::Write) || isOfType(head, CommandType::BinaryWrite))
        forgetStream(m_writes, head);
    if (!isOfType(head, CommandType::Write) || head.totalCount <= 1)
        return answerWhole(head, std::move(body));
    if (m_writes.size() >= maxStreams || bytesIn(m_writes) + body.size() > maxCollectedBytes)
        return emptyAnswer(head, DeviceStatus::Busy);
    m_writes.push_back(Stream{head, 1, head.totalCount, std::move(body), nullptr});
    return emptyAnswer(head, DeviceStatus::Success);
}

PacketAssembler::Packet PacketAssembler::answerFurther(const WireHead &head, std::string body)
{
    if (belongsToWrite(head))
        return collect(head, std::move(body));
    if (isOfType(head, CommandType::BinaryWrite))
        return answerWhole(head, std::move(body));
    return answerNextPacket(head);
}

/// True if a further packet belongs to the split write of its stream, even if its type is wrong.
bool PacketAssembler::belongsToWrite(const WireHead &head)
{
    if (isOfType(head, CommandType::Write))
        return true;
    const auto write = findStream(m_writes, head.stream);
    if (write == m_writes.end())
        return false;
    // The packets of a content belong together by their file, whatever their stream.
    constexpr auto fileImport = static_cast<quint16>(Command::FileImport);
    if (isOfType(head, CommandType::BinaryWrite) && head.code() == fileImport)
        return write->first.code() == fileImport;
    return findStream(m_answers, head.stream) == m_answers.end();
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
        keepAnswer(std::move(stream));
        m_lastAnswered = quint16{head.stream}; // the field is packed: no reference to it
    }
    return first;
}

void PacketAssembler::keepAnswer(Stream answer)
{
    m_answers.push_back(std::move(answer));
    while (m_answers.size() > maxStreams
           || (m_answers.size() > 1 && bytesIn(m_answers) > maxKeptBytes))
        m_answers.pop_front();
}

/// The next packet of a split write. A refusal drops what was collected.
PacketAssembler::Packet PacketAssembler::collect(const WireHead &head, std::string body)
{
    const auto stream = findStream(m_writes, head.stream);
    if (stream == m_writes.end())
        return emptyAnswer(head, DeviceStatus::WrongPacket);
    const DeviceStatus status = checkFurther(head, *stream, body.size());
    if (status != DeviceStatus::Success) {
        m_writes.erase(stream);
        return emptyAnswer(head, status);
    }
    stream->body += body;
    if (++stream->next < stream->totalCount)
        return emptyAnswer(head, DeviceStatus::Success);
    std::string whole = std::move(stream->body);
    m_writes.erase(stream);
    return answerWhole(head, std::move(whole));
}

DeviceStatus PacketAssembler::checkFurther(const WireHead &head, const Stream &write,
                                           std::size_t length) const
{
    if (head.sendCount != write.next || head.totalCount != write.totalCount
        || !areOfOneExchange(head, write.first))
        return DeviceStatus::WrongPacket;
    if (write.body.size() + length > maxCollectedBytes)
        return DeviceStatus::BodyTooLong;
    return bytesIn(m_writes) + length > maxCollectedBytes ? DeviceStatus::Busy
                                                          : DeviceStatus::Success;
}

PacketAssembler::Packet PacketAssembler::answerNextPacket(const WireHead &head)
{
    const auto stream = findStream(m_answers, head.stream);
    if (stream == m_answers.end() || !areOfOneExchange(head, stream->first))
        return emptyAnswer(head, DeviceStatus::NoSuchStream);
    if (head.sendCount != stream->next || head.totalCount != stream->totalCount)
        return emptyAnswer(head, DeviceStatus::WrongPacket);
    Packet packet = piece(head, *stream, stream->next);
    m_lastAnswered = quint16{head.stream}; // the field is packed: no reference to it
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
    if (!stream.content) {
        packet.body = stream.body.substr(std::size_t{index} * m_packetSize, m_packetSize);
        return packet;
    }
    Piece piece = stream.ahead ? std::move(*stream.ahead) : readPiece(stream, index, {});
    stream.ahead.reset();
    packet.frame = std::move(piece.frame);
    packet.checksum = piece.checksum;
    return packet;
}

PacketAssembler::Piece PacketAssembler::readPiece(const Stream &stream, quint32 index,
                                                  QByteArray storage) const
{
    const std::size_t offset = std::size_t{index} * m_packetSize;
    const std::size_t size = std::min<std::size_t>(m_packetSize, lengthOf(stream) - offset);
    storage.resize(static_cast<int>(sizeof(WireHead) + size));
    char *const bytes = storage.data() + sizeof(WireHead);
    readContent(*stream.content, offset, bytes, size);
    return {std::move(storage), SSProxy::Wire::crc32({bytes, size})};
}

void PacketAssembler::readAhead(QByteArray &storage)
{
    if (!m_lastAnswered)
        return;
    const auto stream = findStream(m_answers, *m_lastAnswered);
    m_lastAnswered.reset();
    if (stream == m_answers.end() || !stream->content || stream->ahead
        || bytesIn(m_answers) + m_packetSize > maxKeptBytes)
        return;
    const bool isUnused = storage.isDetached(); // nothing that waits to be sent shares it
    stream->ahead =
        readPiece(*stream, stream->next, isUnused ? std::exchange(storage, {}) : QByteArray());
}

std::size_t PacketAssembler::lengthOf(const Stream &stream) const
{
    return stream.content ? static_cast<std::size_t>(stream.content->size()) : stream.body.size();
}

} // namespace Tavoro::Sim
