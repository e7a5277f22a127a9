#pragma once

#include <QtGlobal>

namespace Tavoro::SSProxy {

/// What a channel puts into \c DeviceResponseCommand::status when the device itself said nothing.
///
/// "Not sent" means that the device has not seen the request. After the others a write may or may
/// not have happened on the device: a read tells. Nothing is ever sent twice by itself.
// clang-format off
enum ChannelStatus : quint16 {
    // The local channel.
    NotInitialized        = 257, ///< The channel was never opened, having no address. Not sent.
    Connecting            = 258, ///< Connecting, or the identity is not read yet. Not sent.
    Disconnected          = 259, ///< No connection: not sent. Or it was lost while the answer was awaited.
    RequestTimedOut       = 260, ///< Nothing of the answer came in the request's time.
    CalledOnChannelThread = 261, ///< A call on the thread that receives would wait for itself. Not sent.
    NoFreeTag             = 262, ///< All tags are taken by requests in flight. Not sent.
    InvalidRequest        = 263, ///< Null, a type that does not exist, or a body above the device's limit. Not sent.
    ThreadNotRunning      = 264, ///< The thread that sends has ended: not sent. Or it ended while the answer was awaited.

    // The protocol decoder.
    WrongAnswerCode       = 357, ///< The answer carries another command's code.
    AnswerTooShort        = 358, ///< The connection ended in the middle of the answer.
    WrongFlag             = 359, ///< Flag or version of a frame, or version of the protocol; the connection is closed.
    UnknownChecksumIndex  = 360, ///< A way of guarding the body that nobody defined.
    WrongChecksum         = 361, ///< Of the body; or of the head, and then the connection is closed.
    WrongType             = 362, ///< A kind of frame or a type of answer that is not what was due; an unreadable identity.
    WrongLength           = 363, ///< A body, packet count or packet size outside the limits; another packet than the one asked for.
    DeviceSilent          = 364, ///< The device stopped answering keep-alives; the connection is closed.
    AnswerIncomplete      = 365, ///< The answer had begun to arrive when the request's time ended.
};
// clang-format on

} // namespace Tavoro::SSProxy
