#pragma once

#include <QHostAddress>
#include <QString>
#include <QtGlobal>

#include <array>

namespace Tavoro::Sim {

/// Identity and hardware of a simulated device.
struct DeviceOptions {
    QHostAddress address = QHostAddress::LocalHost; ///< Also in its network settings.
    QString name = QStringLiteral("Simulated device");
    std::array<quint8, 8> sn = {0x53, 0x49, 0x4D, 0x00, 0x00, 0x00, 0x00, 0x01};
    std::array<quint8, 6> mac = {0x02, 0x00, 0x5E, 0x10, 0x00, 0x01};
    quint16 modelId = 0x7701;

    int inputs = 8; ///< Input connectors, 1 to 4096.
    int outputs = 8; ///< Output connectors, 1 to 4096.
    int screens = 4; ///< Screens of all kinds, 0 to 255.
    int layersPerScreen = 4; ///< Layers in each of the two scenes of a screen, 0 to 256.
};

} // namespace Tavoro::Sim
