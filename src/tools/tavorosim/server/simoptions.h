#pragma once

#include <tavorosim/faults/faultrules.h>
#include <tavorosim/state/deviceoptions.h>

#include <QString>
#include <QtGlobal>

#include <vector>

namespace Tavoro::Sim {

/// All that can be chosen about a simulated device before it starts.
struct SimOptions : DeviceOptions {
    quint16 port = 0; ///< 0: any free one.
    int controlPort = -1; ///< Port for console commands, 0 for any free one, -1 for none.

    int discoveryPort = -1; ///< UDP port to be found on, 0 for any free one, -1 for none.

    quint32 packetSize = 64 * 1024; ///< Longest body in a packet, both ways; at least 1.
    int latencyMilliseconds = 0; ///< How long each answer is held back.

    int clockSpeed = 100; ///< Of the device's clock, in percent; 0: only the console moves it.

    QString filesFolder; ///< Where the files are kept; empty: in memory, until the device ends.

    std::vector<FaultRule> faults; ///< What goes wrong from the beginning.
    quint32 seed = 1; ///< Makes what faults leave to chance.
};

} // namespace Tavoro::Sim
