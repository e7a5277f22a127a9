#pragma once

#include "transferprogressrecords_p.h"

#include <tavorocontrol/autoreportmanager.h>

#include <QMap>
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

/// Receives the reports of all channels, and passes each to the control class that knows its
/// record.
///
/// | member                  | thread              |
/// |-------------------------|---------------------|
/// | transferProgressRecords | any                 |
/// | all others              | that of the manager |
class AutoReportManagerPrivate : public QObject {
    Q_OBJECT

public:
    using WeakDevice = std::weak_ptr<BizModel::Device>;

    explicit AutoReportManagerPrivate(AutoReportManager *manager);
    ~AutoReportManagerPrivate() override;

    void setStopped(bool stop) { isStopAutoReport = stop; }

    TransferProgressRecords transferProgressRecords;

private Q_SLOTS:
    void slotReceiveDeviceAutoReportInfo(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel,
                                         std::shared_ptr<Tavoro::SSProxy::IDeviceCommand> command);

private:
    using Handler = std::function<bool(WeakDevice, const std::string &)>;

    void fillReportHandlers();

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
};

} // namespace Tavoro::Control::Internal
