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
struct OperationTarget;
}

/// Controls the device as a whole: name, cards, genlock, networks, groups, backup relations.
///
/// The device reports changes of cards, groups and backup relations; these reports change the
/// model. All other written values (name, genlock source, network, swap, output mapping, dynamic
/// range, ZeLK, load to PGM) are in the model after the next synchronisation.
///
/// \ingroup operations
class TAVOROCONTROL_EXPORT Device : public QObject, public std::enable_shared_from_this<Device> {
    Q_OBJECT

public:
    /// Creates a control object for \a device, which may already be gone. Any thread.
    explicit Device(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Device() override;

    /// Reads the whole state of the device into \a detail (code 0x1100). Lists in \a detail are
    /// appended to. Returns false with \a error unchanged if the model device is gone when the
    /// answer arrives.
    bool readDetails(ProtoModel::Device::s_DeviceDetail &detail, QString &error);
    /// Reads the whole state of the device into the model (0x1100). Returns false with \a error
    /// unchanged if the model device is gone when the answer arrives, and with the model's text if
    /// the model finds faults (see BizModel::Device::initModelData()).
    bool readDeviceDetails(QString &error);
    /// Reads the whole state of the device as the JSON text that the device sent (0x1100).
    bool sendReadDeviceDetailsCmd(std::string &detail, QString &error);
    /// Reads the whole state of the device (0x1100) and replaces the cards in the model that
    /// \a reported names. Returns false with \a error unchanged if the model device is gone when
    /// the answer arrives.
    bool readSubcardDetail(const ProtoModel::Device::s_subcards &reported, QString &error);
    /// Reads the groups that the device belongs to and appends them to \a groups (0x110A). Logs a
    /// warning and returns false, with \a error unchanged, if the model device is gone.
    bool readDeviceGroupInfo(ProtoModel::Device::s_DeviceGroupInfos &groups, QString &error);
    /// Reads the output mapping (0x1108). Logs a warning and returns false, with \a error
    /// unchanged, if the model device is gone.
    bool readOutputMapping(ProtoModel::Device::s_InterfaceMapping &mapping, QString &error);

    /// Renames the device (0x1101).
    bool writeDeviceGeneral(const ProtoModel::Device::s_General &general, QString &error);
    /// Sets the working modes of cards and connectors (0x1102). Blocks for at most 20 s, unless the
    /// application changed the timeout table.
    bool writeSubcardMode(const ProtoModel::Device::s_subcards &subcards, QString &error);
    /// Selects the signal that the device locks its outputs to (0x1104).
    bool writeGenlockConfig(const ProtoModel::Device::s_Genlock &genlock, QString &error);
    /// Sets up the network ports (0x1106).
    ///
    /// For each port whose address differs from the one in the model, the device's channel is
    /// stopped and removed from the SSProxy::DeviceManager, since the device cannot be reached at
    /// the old address any more. The device has no channel until the application opens one to the
    /// new address, or discovery finds the device there (see refreshDeviceChannel()).
    bool writeNetConfig(const ProtoModel::Device::s_Networks &networks, QString &error);
    /// Selects whether a take swaps preview and programme (0x1107).
    bool writeSwap(const ProtoModel::Device::s_swap &swap, QString &error);
    /// Sets the output mapping and its test pattern (0x1108).
    bool writeOutputMapping(ProtoModel::Device::s_InterfaceMapping &mapping, QString &error);
    /// Sets the conversion between dynamic ranges (0x1109).
    bool writeDynamicRangConversion(ProtoModel::Device::s_DynamicRangConversion &conversion,
                                    QString &error);
    /// Sets the groups that the device belongs to (0x110A). Logs a warning and returns false, with
    /// \a error unchanged, if the model device is gone.
    bool writeDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfos &groups, QString &error);
    /// Sets the backup relations between interfaces (0x110C). The model does not take \c enable
    /// from the report; it is in the model after the next synchronisation. Logs a warning and
    /// returns false, with \a error unchanged, if the model device is gone.
    bool writeInterfaceRelationInfo(const ProtoModel::Device::s_InterfaceRelation &relation,
                                    QString &error);
    /// Switches the device's ZeLK feature on or off (0x110D).
    bool writeZelk(ProtoModel::Device::s_DeviceZelk &zelk, QString &error);
    /// Selects where an applied preset goes: preview or programme (0x110E).
    bool writeLoadToPGM(const BizModel::Enum::Device::LoadToPGMStatus &status, QString &error);

    /// Takes control of the device with this identity (SSProxy::DeviceManager). On failure \a error
    /// holds the reason, and names the client that holds control if it is known. Blocks until the
    /// device has answered, at most 10 s. Any thread but the channels' own.
    bool writeDeviceControlRequest(const QString &ip, const QString &mac, const QString &sn,
                                   QString &error);
    /// Searches the network for devices, if discovery was started, and reconnects channels that
    /// have lost their connection (SSProxy::DeviceManager::refreshDeviceChannel()). Any thread;
    /// returns at once.
    void refreshDeviceChannel();
    /// Stops the channel of the device permanently, and leaves it in the SSProxy::DeviceManager.
    /// Does nothing if the device is gone or has no channel. Any thread.
    void disconnectCommunication();

    /// \name Reports
    /// AutoReportManager calls these to apply the device's reports to the model. \a body is the
    /// JSON of the report.
    ///
    /// Returns false with "Decode json failed: …" in \a error for a body that cannot be decoded,
    /// and with "Device is null." if the model device is gone. Any thread; none blocks.
    /// @{

    /// Adds or updates the reported groups (0x110A).
    bool updateDeviceGroupInfo(const std::string &body, QString &error);
    /// Applies the state of the external genlock signal (0x1105).
    bool updateGenlockStatus(const std::string &body, QString &error);
    /// Applies the progress with which the device loads its stored files (0xFC0D).
    bool updateTransferProgress(const std::string &body, QString &error);
    /// Applies the backup relations between interfaces, without \c enable (0x110C).
    bool updateInterfaceRelationInfo(const std::string &body, QString &error);
    /// Applies the state of the power supplies (0x1103).
    bool updatePowerConfig(const std::string &body, QString &error);
    /// Applies the genlock states of the screens (0x1313).
    bool updateScreenGenlockInfo(const std::string &body, QString &error);
    /// Applies the state of the reported cards (0x1102). \a error is unchanged if the model device
    /// is gone.
    bool updateSubcardsInfo(const std::string &body, QString &error);
    /// Applies the colour that Auxiliary::pickCutoutPos() has picked (0xFC07). Logs a warning, with
    /// \a error unchanged, if the model device is gone.
    bool updateCutoutRGB(const std::string &body, QString &error);

    /// @}

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
