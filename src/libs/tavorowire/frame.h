#pragma once

#include <tavorowire/wirehead.h>

#include <QByteArray>

#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// \a head made fit to be sent in front of \a body: flag, version, length and checksums set.
WireHead sealed(WireHead head, std::string_view body);

/// Head and body as the bytes that travel.
QByteArray encodeFrame(const WireHead &head, std::string_view body = {});
/// The same into \a frame, whose storage serves again, with a checksum that is known.
void encodeFrame(const WireHead &head, std::string_view body, quint32 bodyChecksum,
                 QByteArray &frame);

/// Gives an encoded frame its number, with the checksum of the head that follows from it.
void setNumber(QByteArray &frame, quint32 number);

/// A frame of the connection itself: identity request, ping or pong. The tag of a ping comes back
/// in its pong.
QByteArray encodeLinkFrame(FrameKind kind, quint8 lables = 0);

/// The head of the response to \a request: its number, tag, stream, type, code and filters, status
/// 0, one packet of one.
WireHead responseHead(const WireHead &request);

/// The checksum that the head of a frame should carry.
quint16 headChecksum(WireHead head);

} // namespace Tavoro::SSProxy::Wire
