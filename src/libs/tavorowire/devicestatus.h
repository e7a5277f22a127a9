#pragma once

#include <tavorossproxy/commandcodes.h>

#include <QtGlobal>

namespace Tavoro::SSProxy::Wire {

/// The outcome of a request at the device: \c WireHead::status. A device may use any number from 1
/// to 255 for a refusal; these have a common meaning.
// clang-format off
enum class DeviceStatus : quint8 {
    Success            = 0, ///< Carried out.
    UnknownCommand     = 1, ///< The code is unknown, or is not used with this type.
    MalformedBody      = 2, ///< The command does not accept this body.
    NoSuchObject       = 3, ///< The body or the filters name an object that does not exist.
    ValueOutOfRange    = 4, ///< The body is well-formed, but a value is not in its range.
    WrongPacket        = 5, ///< Not the expected packet of a split exchange.
    NoSuchStream       = 6, ///< The device no longer keeps the answer whose next packet was requested.
    BodyTooLong        = 7, ///< A packet above maxPacketSize, or more in total than accepted.
    Busy               = 8, ///< Not possible now; may succeed later.
    WrongContent       = 9, ///< Length or hash of a content differ from those announced.
    StorageFailed      = 10, ///< Storage is full or has failed.
    ControlledByOthers = statusControlledByOthers, ///< Another client holds control.
    DataUpdated        = statusDataUpdated, ///< Another client has changed the device's data.
};
// clang-format on

} // namespace Tavoro::SSProxy::Wire
