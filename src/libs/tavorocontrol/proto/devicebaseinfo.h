#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

#include <array>
#include <string>
#include <vector>

/// The fields of an identity, in the order in which they are sent. In \c DeviceBaseInfo serial
/// number and MAC address are bytes, in \c s_DeviceIdentity text.
#define TAVORO_IDENTITY_FIELDS(Declare)                                                   \
    Declare(protocolVersion, modelId, sn, mac, hardwareVersion, firmwareVersion, tcpPort, \
            slotCount, backupPort, maxPacketSize, name, slotModels, features, startTime,  \
            configTime, controlState, ip, hostName, extension)

namespace Tavoro::ProtoModel {

/// Identity of a device, as it reported it when the channel connected.
///
/// The control library looks up devices by \c ip, \c mac and \c sn, splits bodies by \c
/// maxPacketSize, and passes the rest to the device model unchanged.
struct DeviceBaseInfo {
    quint16 protocolVersion = 0; ///< Version of the wire protocol: 1.
    quint16 modelId = 0; ///< Model number of the device.
    std::array<quint8, 8> sn{}; ///< Serial number; all zeros if the device has none.
    std::array<quint8, 6> mac{}; ///< MAC address; all zeros if the device has none.
    quint16 hardwareVersion = 0; ///< Version of the hardware, defined by the device.
    quint32 firmwareVersion = 0; ///< Version of the firmware, defined by the device.
    quint16 tcpPort = 0; ///< Port on which the device listens.
    quint16 slotCount = 0; ///< Number of slots for cards.
    /// Backup port, as the device reports it; passed to the model unchanged.
    quint16 backupPort = 0;
    /// Longest body of one request, in bytes; never 0 on a usable channel.
    quint32 maxPacketSize = 0;
    std::string name; ///< Name of the device.
    std::vector<quint16> slotModels; ///< Model number of the card in each slot.
    quint32 features = 0; ///< Features, as the device reports them; passed to the model unchanged.
    /// When the device was switched on: milliseconds since 1970 by the device's clock.
    quint64 startTime = 0;
    /// When the configuration last changed: milliseconds since 1970 by the device's clock.
    quint64 configTime = 0;
    /// 1 if another client held control when the device answered, 0 otherwise.
    quint8 controlState = 0;
    std::string ip; ///< IP address as text.
    std::string hostName; ///< Host name of the device.
    /// Further data, as the device reports it; passed to the model unchanged.
    quint32 extension = 0;
    TAVORO_IDENTITY_FIELDS(TAVORO_FIELDS)
};

} // namespace Tavoro::ProtoModel
