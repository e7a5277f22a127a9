#pragma once

#include <QtGlobal>

namespace Tavoro::SSProxy {

/// A request for control of a device. At most one client holds control: it may write, every client
/// may read.
enum class ControlAction : quint8 {
    Take = 1, ///< Take control unless another client holds it.
    GiveUp = 2, ///< Give control up. Without effect if this client does not hold it.
    Force = 3, ///< Take control even if another client holds it. The device reports the loss to
               ///< that client.
};

} // namespace Tavoro::SSProxy
