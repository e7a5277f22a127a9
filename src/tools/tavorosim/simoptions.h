#pragma once

#include "faultrules.h"

#include <QHostAddress>
#include <QString>
#include <QtGlobal>

#include <array>
#include <vector>

namespace Tavoro::Sim {

/// All that can be chosen about a simulated device before it starts.
struct SimOptions {
    QHostAddress address = QHostAddress::LocalHost;
    quint16 port = 0; ///< 0: any free one.
    int controlPort = -1; ///< Port for console commands, 0 for any free one, -1 for none.

    int discoveryPort = -1; ///< UDP port to be found on, 0 for any free one, -1 for none.

    QString name = QStringLiteral("Simulated device");
    std::array<quint8, 8> sn = {0x53, 0x49, 0x4D, 0x00, 0x00, 0x00, 0x00, 0x01};
    std::array<quint8, 6> mac = {0x02, 0x00, 0x5E, 0x10, 0x00, 0x01};
    quint16 modelId = 0x7701;

    quint32 packetSize = 64 * 1024; ///< Longest body in a packet, both ways; at least 1.
    int latencyMilliseconds = 0; ///< How long each answer is held back.

    int clockSpeed = 100; ///< Of the device's clock, in percent; 0: only the console moves it.

    QString filesFolder; ///< Where the files are kept; empty: in memory, until the device ends.

    std::vector<FaultRule> faults; ///< What goes wrong from the beginning.
    quint32 seed = 1; ///< Makes what faults leave to chance.

    int inputs = 8; ///< Input connectors, 1 to 4096.
    int outputs = 8; ///< Output connectors, 1 to 4096.
    int screens = 4; ///< Screens of all kinds, 0 to 255.
    int layersPerScreen = 4; ///< Layers in each of the two scenes of a screen, 0 to 256.
};

} // namespace Tavoro::Sim
