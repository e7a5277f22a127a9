#pragma once

#include <QtGlobal>

#include <cstddef>

namespace Tavoro::SSProxy {

/// Kind of an exchange: the value of \c PacketHead::type.
enum class CommandType : quint8 {
    Read = 1, ///< JSON in the response body.
    Write = 2, ///< JSON in the request body.
    BinaryRead = 3, ///< Raw bytes in the response body.
    BinaryWrite = 4, ///< Raw bytes in the request body.
};

#pragma pack(push, 1)
/// The head of a frame, byte for byte as it is sent: packed, multi-byte fields little-endian. The
/// body follows it.
///
/// The control library reads and writes the named members; the opaque ones belong to the channel.
/// The requests for further packets of a split exchange repeat bytes 18 to 20 and 29 to 35 of the
/// first request.
struct PacketHead {
    quint8 opaque0[3]; ///< Bytes 0 to 2: for the channel.
    quint8 lables; ///< Tag of the exchange. The protocol spells it "lables".
    quint8 opaque4[14]; ///< Bytes 4 to 17: for the channel.
    quint8 opaque18[2]; ///< Bytes 18 and 19: for the channel, repeated by further packets.
    quint8 type; ///< A \c CommandType.
    quint32 totalCount; ///< Number of packets of a split exchange.
    quint32 sendCount; ///< Index of this packet in a split exchange, from 0.
    quint8 FC; ///< Function code: the low byte of the command code.
    quint8 BC; ///< Base code: the high byte of the command code.
    quint8 arg2[4]; ///< Filters of a detail read; the selector of a remove-all.
    quint8 opaque35; ///< Byte 35: for the channel, repeated by further packets.
    quint8 opaque36[4]; ///< Bytes 36 to 39: for the channel.
};
#pragma pack(pop)

static_assert(offsetof(PacketHead, lables) == 3);
static_assert(offsetof(PacketHead, opaque4) == 4);
static_assert(offsetof(PacketHead, opaque18) == 18);
static_assert(offsetof(PacketHead, type) == 20);
static_assert(offsetof(PacketHead, totalCount) == 21);
static_assert(offsetof(PacketHead, sendCount) == 25);
static_assert(offsetof(PacketHead, FC) == 29);
static_assert(offsetof(PacketHead, BC) == 30);
static_assert(offsetof(PacketHead, arg2) == 31);
static_assert(offsetof(PacketHead, opaque35) == 35);
static_assert(offsetof(PacketHead, opaque36) == 36);
static_assert(sizeof(PacketHead) == 40);
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN,
              "the head is used in place, so the host must have the wire's byte order");

} // namespace Tavoro::SSProxy
