#pragma once

#include <tavorosim/faults/faultrules.h>
#include <tavorosim/state/deviceoptions.h>

#include <QString>
#include <QtGlobal>

#include <vector>

namespace Tavoro::Sim {

/// The options of a simulated device.
struct SimOptions : DeviceOptions {
    quint16 port = 0; ///< 0: any free port.
    int controlPort = -1; ///< Port for console commands; 0: any free port, -1: none.

    int discoveryPort = -1; ///< UDP port for discovery requests; 0: any free port, -1: none.
    QString scenario; ///< Name or file of a scenario that the device carries out; empty: none.

    quint32 packetSize = 64 * 1024; ///< Longest body of a packet in either direction; at least 1.
    int latencyMilliseconds = 0; ///< Delay of each answer.

    int clockSpeed = 100; ///< Clock speed in percent; 0: only the console advances the clock.

    QString filesFolder; ///< Folder for files and the saved setup; empty: in memory only.

    std::vector<FaultRule> faults; ///< Active from the start.
    quint32 seed = 1; ///< Seed of random faults.
};

} // namespace Tavoro::Sim
