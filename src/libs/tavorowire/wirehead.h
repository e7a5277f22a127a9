#pragma once

#include <tavorossproxy/packethead.h>

#include <cstddef>
#include <cstring>

namespace Tavoro::SSProxy::Wire {

constexpr quint16 frameFlag = 0x5654; ///< First two bytes of every frame: 54 56.
constexpr quint8 frameVersion = 1;
/// Version of the protocol that docs/wire.md describes: \c protocolVersion of an identity.
constexpr quint16 protocolVersion = 1;

/// What a frame is for: \c WireHead::kind.
enum class FrameKind : quint8 {
    Request = 1, ///< Client to device, answered by one response.
    Response = 2, ///< Device to client.
    Report = 3, ///< Device to client, unsolicited, never answered.
    IdentityRequest = 4, ///< Client to device, the first frame of a connection.
    IdentityAnswer = 5, ///< Device to client.
    Ping = 6, ///< Either way, answered by a pong at once.
    Pong = 7,
};

/// How \c WireHead::bodyChecksum was made: \c WireHead::checksumIndex.
enum class ChecksumIndex : quint8 {
    None = 0, ///< The body is not guarded; its checksum is 0.
    Crc32 = 1,
};

#pragma pack(push, 1)
/// The head of a frame with every byte named: the channel's view of \c PacketHead.
///
/// \code
///  0  u16  flag            54 56
///  2  u8   version         1
///  3  u8   lables          tag of the exchange, 0 outside of exchanges
///  4  u32  bodyLength      bytes after the head
///  8  u8   status          0 success, 1 to 255 refused; responses only
///  9  u8   checksumIndex   ChecksumIndex
/// 10  u8   kind            FrameKind
/// 11  u8   reserved11      0
/// 12  u16  headChecksum    CRC-16 of the 40 bytes, these two as 0
/// 14  u32  bodyChecksum    by checksumIndex
/// 18  u16  stream          what the packets of one split exchange have in common
/// 20  u8   type            CommandType
/// 21  u32  totalCount      packets of the split exchange
/// 25  u32  sendCount       index of this packet, from 0
/// 29  u8   FC              function code
/// 30  u8   BC              base code
/// 31  u8   arg2[4]         filters
/// 35  u8   reserved35      0
/// 36  u32  number          of the request, counted from 1; echoed in its response, else 0
/// \endcode
struct WireHead {
    quint16 flag = frameFlag;
    quint8 version = frameVersion;
    quint8 lables = 0;
    quint32 bodyLength = 0;
    quint8 status = 0;
    quint8 checksumIndex = 0;
    quint8 kind = 0;
    quint8 reserved11 = 0;
    quint16 headChecksum = 0;
    quint32 bodyChecksum = 0;
    quint16 stream = 0;
    quint8 type = 0;
    quint32 totalCount = 0;
    quint32 sendCount = 0;
    quint8 FC = 0;
    quint8 BC = 0;
    quint8 arg2[4] = {};
    quint8 reserved35 = 0;
    quint32 number = 0;

    quint16 code() const { return static_cast<quint16>(BC << 8 | FC); }
};
#pragma pack(pop)

static_assert(offsetof(WireHead, lables) == offsetof(PacketHead, lables));
static_assert(offsetof(WireHead, bodyLength) == 4);
static_assert(offsetof(WireHead, kind) == 10);
static_assert(offsetof(WireHead, headChecksum) == 12);
static_assert(offsetof(WireHead, bodyChecksum) == 14);
static_assert(offsetof(WireHead, stream) == 18);
static_assert(offsetof(WireHead, type) == offsetof(PacketHead, type));
static_assert(offsetof(WireHead, arg2) == offsetof(PacketHead, arg2));
static_assert(offsetof(WireHead, number) == 36);
static_assert(sizeof(WireHead) == 40 && sizeof(WireHead) == sizeof(PacketHead));

/// The two views of the same 40 bytes.
inline WireHead wireHead(const PacketHead &head)
{
    WireHead wire;
    std::memcpy(static_cast<void *>(&wire), &head, sizeof wire);
    return wire;
}
inline PacketHead packetHead(const WireHead &wire)
{
    PacketHead head;
    std::memcpy(static_cast<void *>(&head), &wire, sizeof head);
    return head;
}

} // namespace Tavoro::SSProxy::Wire
