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
struct Link;
}

/// Commands the maintenance of a device: restart, factory settings, saving, clock, versions, self
/// check, firmware.
///
/// Cheap to make; never touches the model.
///
/// Every operation blocks its caller until the device has answered, at most for the time that the
/// device's timeout table has for the command, plus 10 s per packet where it takes several. It may
/// be called from any thread but the channels' own, where it fails with status 261. It returns true
/// for success. On failure it returns false, and \a error holds the sentence that was shown on the
/// status bar; for a packet of a split write that is refused, the reason alone; for an answer that
/// cannot be decoded, "Decode json failed: …". On success \a error is left alone. A device without
/// a channel takes every write as done, and answers every read with nothing, which then fails to
/// decode.
class TAVOROCONTROL_EXPORT Auxiliary : public QObject {
    Q_OBJECT

public:
    explicit Auxiliary(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Auxiliary() override;

    /// Restarts the device or shuts it down (code 0xFC01); what each number of \a option means is
    /// the device's.
    bool writeRestartShutdown(const ProtoModel::Auxiliary::s_AuxiliaryOpt &option, QString &error);
    /// Sets the device back to its factory settings (0xFC02).
    bool writeFactoryType(const ProtoModel::Auxiliary::s_AuxiliaryOpt &option, QString &error);
    /// Has the device save its state (0xFC03).
    bool saveDeviceData(QString &error);
    /// Starts, stops or clears the count of lost sources (0xFC04).
    bool writeSourceLostCnt(const ProtoModel::Auxiliary::s_AuxiliaryOpt &option, QString &error);
    /// Has the device pick the colour at a point (0xFC06); the colour comes back as a report.
    bool pickCutoutPos(const ProtoModel::Auxiliary::s_CutoutPos &position, QString &error);
    /// Starts a firmware upgrade (0xFC08). "Ugrade": the interface spells it so.
    bool setUgradeConfig(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade, QString &error);
    /// Sets the clock of the device (0xFC0C).
    bool setDeviceTime(const ProtoModel::Auxiliary::s_DeviceTime &time, QString &error);

    /// Reads how often sources were lost (0xFC05) and appends it to \a statistics.
    bool readSourceLossStatResult(std::vector<ProtoModel::Auxiliary::s_SourceLossStat> &statistics,
                                  QString &error);
    /// Reads how far a firmware upgrade is (0xFC09). Poll it at a pace of your own.
    bool readUpgradeProgress(ProtoModel::Auxiliary::s_UpgradePercent &progress, QString &error);
    /// Reads the versions of the device and its units (0xFC0A).
    bool readDeviceVersion(ProtoModel::Auxiliary::s_DeviceVersion &version, QString &error);
    /// Reads what the device measured of itself (0xFC0B). The text of a decoding failure ends with
    /// the whole body.
    bool readDeviceSelfCheckDetail(ProtoModel::Auxiliary::s_DeviceSelfCheckDetail &detail,
                                   QString &error);
    /// Reads how far the device is with loading what it stores (0xFC0D). \a error goes by value:
    /// the text of a failure does not reach the caller.
    bool readDeviceLoadTransferProgress(ProtoModel::Auxiliary::s_DeviceProcess &progress,
                                        QString error);

    /// Does nothing and returns false.
    bool updateCutoutRGB();

private:
    Internal::Link link() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
