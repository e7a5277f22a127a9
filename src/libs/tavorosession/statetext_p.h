#pragma once

#include <tavorosession/devicestate.h>

#include <QString>

namespace Tavoro::SessionInternal {

/// The sentence for the user about the state of the device \a name, translated.
QString stateText(const DeviceState &state, const QString &name);

} // namespace Tavoro::SessionInternal
