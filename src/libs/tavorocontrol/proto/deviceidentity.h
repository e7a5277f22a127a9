#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

#include <string>
#include <vector>

namespace Tavoro::ProtoModel {

/// The identity of a device as it travels: \c DeviceBaseInfo with its bytes as hexadecimal digits.
struct s_DeviceIdentity {
    quint16 protocolVersion = 0;
    quint16 modelId = 0;
    std::string sn; ///< 16 digits.
    std::string mac; ///< 12 digits.
    quint16 hardwareVersion = 0;
    quint32 firmwareVersion = 0;
    quint16 tcpPort = 0;
    quint16 slotCount = 0;
    quint16 backupPort = 0;
    quint32 maxPacketSize = 0;
    std::string name;
    std::vector<quint16> slotModels;
    quint32 features = 0;
    quint64 startTime = 0;
    quint64 configTime = 0;
    quint8 controlState = 0;
    std::string ip;
    std::string hostName;
    quint32 extension = 0;
    TAVORO_FIELDS(protocolVersion, modelId, sn, mac, hardwareVersion, firmwareVersion, tcpPort,
                  slotCount, backupPort, maxPacketSize, name, slotModels, features, startTime,
                  configTime, controlState, ip, hostName, extension)
};

} // namespace Tavoro::ProtoModel
