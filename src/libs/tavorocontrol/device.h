#pragma once

#include <tavorobizmodel/enums.h>
#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/device.h>

#include <QObject>
#include <QString>

#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

class ControlHelper;

namespace Internal {
struct Link;
}

/// Commands the device as a whole: name, cards, genlock, networks, groups, backup relations.
///
/// Cheap to make; holds no state of the device. Make one on the stack for one call, or keep one.
///
/// Every operation blocks its caller until the device has answered, at most for the time that the
/// device's timeout table has for the command, plus 10 s per packet where it takes several. It may
/// be called from any thread but the channels' own, where it fails with status 261. It returns true
/// for success. On failure it returns false, and \a error holds the sentence that was shown on the
/// status bar; for a packet of a split write that is refused, the reason alone; for an answer that
/// cannot be decoded, "Decode json failed: …". On success \a error is left alone, so that a text
/// that is used again still holds what stood in it before. A device without a channel takes every
/// write as done, and answers every read with nothing, which then fails to decode.
///
/// Writes do not touch the model: it follows by the device's own reports.
class TAVOROCONTROL_EXPORT Device : public QObject, public std::enable_shared_from_this<Device> {
    Q_OBJECT

public:
    explicit Device(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Device() override;

    /// Reads the whole state of the device into \a detail (code 0x1100). False without a text if
    /// the model device is gone by the time of the answer.
    bool readDetails(ProtoModel::Device::s_DeviceDetail &detail, QString &error);
    /// Reads the whole state of the device into the model (0x1100). False without a text if the
    /// model device is gone by the time of the answer.
    bool readDeviceDetails(QString &error);
    /// Reads the whole state of the device as the JSON text that came (0x1100).
    bool sendReadDeviceDetailsCmd(std::string &detail, QString &error);
    /// Reads the whole state of the device (0x1100) and rebuilds the slots that \a reported names
    /// in the model. False without a text if the model device is gone by the time of the answer.
    bool readSubcardDetail(const ProtoModel::Device::s_subcards &reported, QString &error);
    /// Reads the groups that the device is in (0x110A). False without a text if the model device is
    /// gone.
    bool readDeviceGroupInfo(ProtoModel::Device::s_DeviceGroupInfos &groups, QString &error);
    /// Reads the output mapping (0x1108). False without a text if the model device is gone.
    bool readOutputMapping(ProtoModel::Device::s_InterfaceMapping &mapping, QString &error);

    /// Renames the device (0x1101).
    bool writeDeviceGeneral(const ProtoModel::Device::s_General &general, QString &error);
    /// Changes the working modes of cards and connectors (0x1102).
    bool writeSubcardMode(const ProtoModel::Device::s_subcards &subcards, QString &error);
    /// Chooses what the device locks its outputs to (0x1104).
    bool writeGenlockConfig(const ProtoModel::Device::s_Genlock &genlock, QString &error);
    /// Changes the network ports (0x1106). For each port that gets an address other than the one in
    /// the model, the device's channel is stopped and forgotten, since the device will no longer be
    /// found under the old one. Open a channel to the new address, or call
    /// SSProxy::DeviceManager::refreshDeviceChannel() where the application looks for devices;
    /// until then the device has no channel.
    bool writeNetConfig(const ProtoModel::Device::s_Networks &networks, QString &error);
    /// Chooses whether preview and programme change places on a take (0x1107).
    bool writeSwap(const ProtoModel::Device::s_swap &swap, QString &error);
    /// Changes the output mapping and the pattern that shows it (0x1108).
    bool writeOutputMapping(ProtoModel::Device::s_InterfaceMapping &mapping, QString &error);
    /// Changes the conversion between dynamic ranges (0x1109).
    bool writeDynamicRangConversion(ProtoModel::Device::s_DynamicRangConversion &conversion,
                                    QString &error);
    /// Puts the device into groups (0x110A). False without a text if the model device is gone.
    bool writeDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfos &groups, QString &error);
    /// Changes the backup relations between interfaces (0x110C). False without a text if the model
    /// device is gone.
    bool writeInterfaceRelationInfo(const ProtoModel::Device::s_InterfaceRelation &relation,
                                    QString &error);
    /// Switches the device's ZeLK feature on or off (0x110D).
    bool writeZelk(ProtoModel::Device::s_DeviceZelk &zelk, QString &error);
    /// Chooses where an applied preset goes (0x110E).
    bool writeLoadToPGM(const BizModel::Enum::Device::LoadToPGMStatus &status, QString &error);

    /// Asks for control of the device with this identity. \a error gets the reason on failure.
    /// Blocks until the device answers, 10 s at the most.
    bool writeDeviceControlRequest(const QString &ip, const QString &mac, const QString &sn,
                                   QString &error);
    /// Looks for devices on the network again. Returns at once.
    void refreshDeviceChannel();
    /// Stops the channel of the device. The channel stays known; nothing happens without a device
    /// or a channel.
    void disconnectCommunication();

    /// \name Reports
    /// Apply what the device told of its own accord to the model. \a body is the report's JSON. On
    /// failure \a error holds "Decode json failed: …" or "Device is null.".
    /// @{
    bool updateDeviceGroupInfo(const std::string &body, QString &error);
    bool updateGenlockStatus(const std::string &body, QString &error);
    bool updateTransferProgress(const std::string &body, QString &error);
    bool updateInterfaceRelationInfo(const std::string &body, QString &error);
    bool updatePowerConfig(const std::string &body, QString &error);
    bool updateScreenGenlockInfo(const std::string &body, QString &error);
    /// Leaves \a error alone if the model device is gone.
    bool updateSubcardsInfo(const std::string &body, QString &error);
    /// Leaves \a error alone if the model device is gone, and logs a warning.
    bool updateCutoutRGB(const std::string &body, QString &error);
    /// @}

private:
    Internal::Link link() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
