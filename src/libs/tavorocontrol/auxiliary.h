#pragma once

#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/auxiliary.h>

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

class ControlHelper;

namespace Internal {
struct OperationTarget;
}

/// Maintains a device: restart, factory settings, saving, clock, versions, self check, firmware.
///
/// No operation changes the model.
///
/// \ingroup operations
class TAVOROCONTROL_EXPORT Auxiliary : public QObject {
    Q_OBJECT

public:
    /// Creates a control object for \a device, which may already be gone. Any thread.
    explicit Auxiliary(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Auxiliary() override;

    /// Restarts the device or shuts it down (code 0xFC01). The device defines the values of
    /// \c type.
    bool writeRestartShutdown(const ProtoModel::Auxiliary::s_AuxiliaryOpt &option, QString &error);
    /// Resets the device to factory settings (0xFC02). The device defines the values of \c type.
    bool writeFactoryType(const ProtoModel::Auxiliary::s_AuxiliaryOpt &option, QString &error);
    /// Makes the device save its state (0xFC03). Blocks for at most 200 s, unless the application
    /// changed the timeout table.
    bool saveDeviceData(QString &error);
    /// Starts, stops or clears the count of lost sources (0xFC04).
    bool writeSourceLostCnt(const ProtoModel::Auxiliary::s_AuxiliaryOpt &option, QString &error);
    /// Makes the device pick the colour at a position (0xFC06). The device reports the colour
    /// (0xFC07), see Device::updateCutoutRGB().
    bool pickCutoutPos(const ProtoModel::Auxiliary::s_CutoutPos &position, QString &error);
    /// Starts a firmware upgrade from a package that the device already holds (0xFC08). Returns
    /// when the device has accepted the request; poll readUpgradeProgress() for the progress. The
    /// protocol spells it "Ugrade".
    bool setUgradeConfig(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade, QString &error);
    /// Sets the clock of the device, in local time (0xFC0C).
    bool setDeviceTime(const ProtoModel::Auxiliary::s_DeviceTime &time, QString &error);

    /// Reads how often sources were lost and appends it to \a statistics (0xFC05).
    bool readSourceLossStatResult(std::vector<ProtoModel::Auxiliary::s_SourceLossStat> &statistics,
                                  QString &error);
    /// Reads the progress of a firmware upgrade, in percent (0xFC09). The caller chooses how often
    /// to poll.
    bool readUpgradeProgress(ProtoModel::Auxiliary::s_UpgradePercent &progress, QString &error);
    /// Reads the versions of the device and its units (0xFC0A).
    bool readDeviceVersion(ProtoModel::Auxiliary::s_DeviceVersion &version, QString &error);
    /// Reads the result of the device's self check (0xFC0B). If the answer cannot be decoded,
    /// \a error ends with " error json is : " and the whole body.
    bool readDeviceSelfCheckDetail(ProtoModel::Auxiliary::s_DeviceSelfCheckDetail &detail,
                                   QString &error);
    /// Reads the progress with which the device loads its stored files (0xFC0D). \a error is passed
    /// by value, so the caller does not get the text of a failure.
    bool readDeviceLoadTransferProgress(ProtoModel::Auxiliary::s_DeviceProcess &progress,
                                        QString error);

    /// Does nothing and returns false. Device::updateCutoutRGB() applies the reported colour.
    bool updateCutoutRGB();

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
