#pragma once

#include <tavorocontrol/autoreportmanager.h>

#include <QMap>
#include <QMutex>
#include <QObject>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Tavoro::SSProxy {
class DeviceChannel;
class IDeviceCommand;
} // namespace Tavoro::SSProxy

namespace Tavoro::Control::Internal {

/// | member                                            | thread                    |
/// |---------------------------------------------------|---------------------------|
/// | findRecord(), updateRecord(), resetRecord()       | any                       |
/// | all others                                        | that of the manager       |
class AutoReportManagerPrivate : public QObject {
    Q_OBJECT

public:
    using WeakDevice = std::weak_ptr<BizModel::Device>;
    using Percents = std::vector<ProtoModel::File::s_FileTransPercent>;

    explicit AutoReportManagerPrivate(AutoReportManager *manager);
    ~AutoReportManagerPrivate() override;

    void setStopped(bool stop) { isStopAutoReport = stop; }

    bool findRecord(const WeakDevice &device, s_DeviceFileTransferProgress &record);
    void updateRecord(const WeakDevice &device, Percents percents);
    void resetRecord(const WeakDevice &device);

private Q_SLOTS:
    void slotReceiveDeviceAutoReportInfo(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel,
                                         std::shared_ptr<Tavoro::SSProxy::IDeviceCommand> command);

private:
    using Handler = std::function<bool(WeakDevice, const std::string &)>;

    void fillReportHandlers();
    s_DeviceFileTransferProgress *recordOf(const std::shared_ptr<BizModel::Device> &device);

    bool receiveAutoReportSubcards(WeakDevice device, const std::string &body);
    bool receiveAutoReportPowerInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportGenlockStatus(WeakDevice device, const std::string &body);
    bool receiveAutoReportDeviceGroupInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportInterfaceRelationInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportInterfaceGeneralInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportInterfaceActualTiming(WeakDevice device, const std::string &body);
    bool receiveAutoReportInterfaceBitDepthInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportInterfaceColorSpacesInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportInterfaceColorRangesInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportInterfaceHDRInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportScreenGenlockInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportScreenZelkInfo(WeakDevice device, const std::string &body);
    bool receiveAutoReportFileTransferProgress(WeakDevice device, const std::string &body);
    bool receiveAutoReportCutoutRGB(WeakDevice device, const std::string &body);
    bool receiveAutoReportDeviceTransferProgress(WeakDevice device, const std::string &body);

    AutoReportManager *const q;
    QMap<quint16, Handler> reportHandlers; ///< Read-only after construction.
    bool isStopAutoReport = false;
    std::vector<s_DeviceFileTransferProgress>
        transferProgressRecords; // guarded by transferProgressMutex
    QMutex transferProgressMutex;
};

} // namespace Tavoro::Control::Internal
