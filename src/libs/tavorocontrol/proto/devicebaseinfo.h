#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

#include <array>
#include <string>
#include <vector>

namespace Tavoro::ProtoModel {

/// Identity of a device, as its channel found it at connection.
///
/// The control library looks devices up by \c ip, \c mac and \c sn, splits bodies by \c
/// maxPacketSize, and hands the rest to the device model as it came.
struct DeviceBaseInfo {
    quint16 protocolVersion = 0; ///< Version of the wire protocol that the device speaks.
    quint16 modelId = 0; ///< Model number of the device.
    std::array<quint8, 8> sn{}; ///< Serial number.
    std::array<quint8, 6> mac{};
    quint16 hardwareVersion = 0;
    quint32 firmwareVersion = 0;
    quint16 tcpPort = 0;
    quint16 slotCount = 0;
    quint16 backupPort = 0;
    /// Largest body of one request, in bytes; never 0 on a usable channel.
    quint32 maxPacketSize = 0;
    std::string name;
    std::vector<quint16> slotModels; ///< Model number of the card in each slot.
    quint32 features = 0;
    /// When the device was switched on, milliseconds since 1970 by its own clock.
    quint64 startTime = 0;
    quint64 configTime = 0; ///< When its configuration last changed, in the same unit.
    quint8 controlState = 0;
    std::string ip;
    std::string hostName;
    quint32 extension = 0;
    TAVORO_FIELDS(protocolVersion, modelId, sn, mac, hardwareVersion, firmwareVersion, tcpPort,
                  slotCount, backupPort, maxPacketSize, name, slotModels, features, startTime,
                  configTime, controlState, ip, hostName, extension)
};

} // namespace Tavoro::ProtoModel
