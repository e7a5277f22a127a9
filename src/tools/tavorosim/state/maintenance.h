#pragma once

#include "upgrade.h"

#include <QtGlobal>

#include <map>
#include <utility>

namespace Tavoro::Sim {

/// Whether the device runs. A device that does not run has no connections.
enum class Power {
    On,
    Restarting, ///< It switches itself on again.
    Off, ///< Only the console switches it on.
};

/// The state that depends on time. All times are in milliseconds.
struct Maintenance {
    qint64 uptime = 0; ///< Time since the program started, by the device's clock.
    qint64 clockAtStart = 0; ///< The time of that clock at the start, since 1970.

    Power power = Power::On;
    qint64 switchedOn = 0; ///< The uptime when it was switched on last.
    qint64 restartLeft = 0; ///< Time until a restarting device is on again.

    bool isLoading = false; ///< It loads its files after a restart.
    qint64 loaded = 0; ///< The time that loading has taken.

    bool countsLosses = false;
    std::map<std::pair<quint8, quint8>, quint32> losses; ///< Lost sources by slot and connector.

    Upgrade upgrade;
};

} // namespace Tavoro::Sim
