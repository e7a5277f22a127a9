#pragma once

#include <QtGlobal>

namespace Tavoro::SSProxy {

/// What a client wants of the control of a device. One client holds it at a time: it may write, all
/// may read.
enum class ControlAction : quint8 {
    Take = 1, ///< Have it, unless another client does.
    GiveUp = 2, ///< Have it no more. Nothing happens where it was not held.
    Force = 3, ///< Have it, whoever does. Who loses it is told.
};

} // namespace Tavoro::SSProxy
