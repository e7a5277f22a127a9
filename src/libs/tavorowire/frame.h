#pragma once

#include <tavorowire/wirehead.h>

#include <QByteArray>

#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// Returns \a head with the flag, version, length and checksums of a frame with \a body.
WireHead withChecksums(WireHead head, std::string_view body);

/// Returns the bytes of a frame.
QByteArray encodeFrame(const WireHead &head, std::string_view body = {});
/// Writes a frame into \a frame, whose storage is reused. \a bodyChecksum is crc32() of \a body.
void encodeFrame(const WireHead &head, std::string_view body, quint32 bodyChecksum,
                 QByteArray &frame);

/// Writes the head into \a frame, which consists of room for a head and of a body. \a bodyChecksum
/// is crc32() of the body.
void writeHead(const WireHead &head, quint32 bodyChecksum, QByteArray &frame);

/// Sets the request number in the head of an encoded frame, and updates the head checksum.
void setNumber(QByteArray &frame, quint32 number);

/// Returns a frame without a body that is not part of an exchange: identity request, ping or pong.
/// A pong has the tag of its ping.
QByteArray encodeLinkFrame(FrameKind kind, quint8 lables = 0);

/// Returns the head of the response to \a request, with its number, tag, stream, type, code and
/// filters, status 0 and packet 1 of 1.
WireHead responseHead(const WireHead &request);

/// Returns the checksum of a head.
quint16 headChecksum(WireHead head);

} // namespace Tavoro::SSProxy::Wire
