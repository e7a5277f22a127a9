#pragma once

#include <QString>

namespace Tavoro {
class DeviceSession;
} // namespace Tavoro

namespace Tavoro::Panel {

/// The state of a device as one sentence: state, progress, reason and next attempt.
QString stateText(const DeviceSession &device);

} // namespace Tavoro::Panel
