#include <tavorowire/frame.h>

#include <tavorowire/checksums.h>

#include <cstring>

namespace Tavoro::SSProxy::Wire {

namespace {

std::string_view bytesOf(const WireHead &head)
{
    return {reinterpret_cast<const char *>(&head), sizeof head};
}

WireHead withChecksums(WireHead head, std::size_t bodySize, quint32 bodyChecksum)
{
    head.flag = frameFlag;
    head.version = frameVersion;
    head.bodyLength = static_cast<quint32>(bodySize);
    head.checksumIndex = static_cast<quint8>(ChecksumIndex::Crc32);
    head.bodyChecksum = bodyChecksum;
    head.headChecksum = headChecksum(head);
    return head;
}

} // namespace

quint16 headChecksum(WireHead head)
{
    head.headChecksum = 0;
    return crc16(bytesOf(head));
}

WireHead withChecksums(WireHead head, std::string_view body)
{
    return withChecksums(head, body.size(), crc32(body));
}

QByteArray encodeFrame(const WireHead &head, std::string_view body)
{
    QByteArray frame;
    encodeFrame(head, body, crc32(body), frame);
    return frame;
}

void encodeFrame(const WireHead &head, std::string_view body, quint32 bodyChecksum,
                 QByteArray &frame)
{
    const WireHead wire = withChecksums(head, body.size(), bodyChecksum);
    frame.resize(0);
    frame.reserve(static_cast<int>(sizeof wire + body.size()));
    frame.append(bytesOf(wire).data(), static_cast<int>(sizeof wire));
    frame.append(body.data(), static_cast<int>(body.size()));
}

void writeHead(const WireHead &head, quint32 bodyChecksum, QByteArray &frame)
{
    const auto size = static_cast<std::size_t>(frame.size()) - sizeof head;
    const WireHead wire = withChecksums(head, size, bodyChecksum);
    const int begin = 0; // Qt 6 could also take the literal for a null pointer.
    const int length = sizeof wire;
    frame.replace(begin, length, bytesOf(wire).data(), length);
}

void setNumber(QByteArray &frame, quint32 number)
{
    WireHead head;
    std::memcpy(static_cast<void *>(&head), frame.constData(), sizeof head);
    head.number = number;
    head.headChecksum = headChecksum(head);
    std::memcpy(frame.data(), &head, sizeof head);
}

QByteArray encodeLinkFrame(FrameKind kind, quint8 lables)
{
    WireHead head;
    head.kind = static_cast<quint8>(kind);
    head.lables = lables;
    return encodeFrame(head);
}

WireHead responseHead(const WireHead &request)
{
    WireHead head = request;
    head.kind = static_cast<quint8>(FrameKind::Response);
    head.status = 0;
    head.totalCount = 1;
    head.sendCount = 0;
    return head;
}

} // namespace Tavoro::SSProxy::Wire
