#include <tavorowire/frameparser.h>

#include <tavorossproxy/channelstatus.h>
#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>

#include <algorithm>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr std::size_t headSize = sizeof(WireHead);

bool isKnownKind(quint8 kind)
{
    return kind >= quint8(FrameKind::Request) && kind <= quint8(FrameKind::Pong);
}

bool isKnownChecksumIndex(quint8 index)
{
    return index <= quint8(ChecksumIndex::Crc32);
}

} // namespace

std::optional<FrameEvent> FrameParser::next(std::string_view &bytes)
{
    if (m_dead) {
        bytes = {};
        return std::nullopt;
    }
    if (m_headTaken < headSize) {
        takeHead(bytes);
        if (const quint16 status = fatalFault()) {
            m_dead = true;
            return FrameEvent{status, true, m_head, {}};
        }
        if (m_headTaken < headSize)
            return std::nullopt;
        beginBody();
    }
    takeBody(bytes);
    if (m_bodyLeft > 0)
        return std::nullopt;
    return finish();
}

std::optional<WireHead> FrameParser::unfinishedHead() const
{
    return !m_dead && m_headTaken == headSize ? std::make_optional(m_head) : std::nullopt;
}

void FrameParser::takeHead(std::string_view &bytes)
{
    const std::size_t count = std::min(bytes.size(), headSize - m_headTaken);
    std::memcpy(reinterpret_cast<char *>(&m_head) + m_headTaken, bytes.data(), count);
    m_headTaken += count;
    bytes.remove_prefix(count);
}

/// Checks the consumed part of the head. A wrong flag is reported before the head is complete: a
/// peer that speaks another protocol may wait for a reply and send nothing more.
quint16 FrameParser::fatalFault() const
{
    if (m_headTaken >= offsetof(WireHead, version) && m_head.flag != frameFlag)
        return WrongFlag;
    if (m_headTaken > offsetof(WireHead, version) && m_head.version != frameVersion)
        return WrongFlag;
    if (m_headTaken < headSize)
        return 0;
    if (m_head.headChecksum != headChecksum(m_head))
        return WrongChecksum;
    return m_head.bodyLength > m_maxBodySize ? WrongLength : 0;
}

void FrameParser::beginBody()
{
    m_bodyLeft = m_head.bodyLength;
    m_bodyChecksum = 0;
    if (!isKnownChecksumIndex(m_head.checksumIndex))
        m_fault = UnknownChecksumIndex;
    else if (!isKnownKind(m_head.kind))
        m_fault = WrongType;
    else
        m_body.reserve(m_head.bodyLength);
}

void FrameParser::takeBody(std::string_view &bytes)
{
    const auto part = bytes.substr(0, m_bodyLeft);
    bytes.remove_prefix(part.size());
    m_bodyLeft -= static_cast<quint32>(part.size());
    if (m_fault != 0)
        return;
    if (m_head.checksumIndex == quint8(ChecksumIndex::Crc32))
        m_bodyChecksum = crc32(part, m_bodyChecksum); // now, while the bytes are in the cache
    m_body.append(part);
}

FrameEvent FrameParser::finish()
{
    if (m_fault == 0 && m_bodyChecksum != m_head.bodyChecksum)
        m_fault = WrongChecksum;
    FrameEvent event{m_fault, false, m_head, std::move(m_body)};
    if (event.status != 0)
        event.body.clear();
    reset();
    return event;
}

} // namespace Tavoro::SSProxy::Wire
