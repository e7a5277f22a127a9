#pragma once

#include <tavorossproxy/commandcodes.h>

#include <QtGlobal>

namespace Tavoro::SSProxy::Wire {

/// Why a device refuses a request: \c WireHead::status. Any number from 1 to 255 is allowed; these
/// are the ones that have a meaning in common.
// clang-format off
enum class DeviceStatus : quint8 {
    Success            = 0,
    UnknownCommand     = 1, ///< The device knows no such code, or not with this type.
    MalformedBody      = 2, ///< The body is not what the command takes.
    NoSuchObject       = 3, ///< The body or the filters name something that is not there.
    ValueOutOfRange    = 4,
    WrongPacket        = 5, ///< A packet of a split exchange that is not the next one.
    NoSuchStream       = 6, ///< The answer whose further packet is asked for is no longer kept.
    BodyTooLong        = 7, ///< A packet above maxPacketSize, or more in all than the device takes.
    Busy               = 8, ///< Not now.
    WrongContent       = 9, ///< Length or hash sum of a content are not what was announced.
    StorageFailed      = 10, ///< There is no room, or the storage does not work.
    ControlledByOthers = statusControlledByOthers, ///< Another client holds control.
    DataUpdated        = statusDataUpdated, ///< The device's data changed behind this client's back.
};
// clang-format on

} // namespace Tavoro::SSProxy::Wire
