#pragma once

#include <QtGlobal>

namespace Tavoro::SSProxy {

/// Values of \c DeviceResponseCommand::status that the channel sets instead of the device.
///
/// "Not sent" means that the device has not received the request. After any other status the device
/// may or may not have carried out a write: read the value back, or call
/// NetworkChannel::requestOutcome(). The channel never repeats a request.
// clang-format off
enum ChannelStatus : quint16 {
    // The local channel.
    NotInitialized        = 257, ///< The channel has no address and was never opened. Not sent.
    Connecting            = 258, ///< The channel connects, or has not read the identity yet. Not sent.
    Disconnected          = 259, ///< No connection: not sent. Or it was lost before the answer.
    RequestTimedOut       = 260, ///< No part of the answer arrived within the timeout, or the request waited in the channel for that time.
    CalledOnChannelThread = 261, ///< The caller is on the channels' own thread, which would wait for itself. Not sent.
    NoFreeTag             = 262, ///< Requests in flight use all tags. Not sent.
    InvalidRequest        = 263, ///< A null request, an unknown type, or a body above the device's limit. Not sent.
    ThreadNotRunning      = 264, ///< The channels' thread has ended: not sent. Or it ended before the answer.

    // The protocol decoder.
    WrongAnswerCode       = 357, ///< The answer has another command code, or other filters, than the request.
    AnswerTooShort        = 358, ///< The connection ended in the middle of the answer.
    WrongFlag             = 359, ///< Flag or version of a frame, or version of the protocol. The channel reconnects.
    UnknownChecksumIndex  = 360, ///< The checksum index is not defined.
    WrongChecksum         = 361, ///< Checksum of the body; or of the head, then the channel reconnects.
    WrongType             = 362, ///< An unexpected kind of frame or type of answer; an identity that cannot be read.
    WrongLength           = 363, ///< Body, packet count or packet size outside the limits, or not the requested packet.
    DeviceSilent          = 364, ///< The device stopped answering pings. The channel reconnects.
    AnswerIncomplete      = 365, ///< A part of the answer arrived within the timeout.
};
// clang-format on

} // namespace Tavoro::SSProxy
