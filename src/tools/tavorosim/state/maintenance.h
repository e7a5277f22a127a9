#pragma once

#include "upgrade.h"

#include <QtGlobal>

#include <map>
#include <utility>

namespace Tavoro::Sim {

/// Whether the device works. A device that does not has no connections.
enum class Power {
    On,
    Restarting, ///< It comes back by itself.
    Off, ///< It waits for somebody to switch it on.
};

/// What the device does and counts while time passes. All times are in milliseconds.
struct Maintenance {
    qint64 uptime = 0; ///< Since the program began, by the device's own clock.
    qint64 clockAtStart = 0; ///< What that clock showed then, since 1970.

    Power power = Power::On;
    qint64 switchedOn = 0; ///< The uptime when it was switched on last.
    qint64 restartLeft = 0; ///< Until a restarting device is back.

    bool isLoading = false; ///< Its files, after a restart.
    qint64 loaded = 0; ///< How long already.

    bool countsLosses = false;
    std::map<std::pair<quint8, quint8>, quint32> losses; ///< By slot and connector.

    Upgrade upgrade;
};

} // namespace Tavoro::Sim
