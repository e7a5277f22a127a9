#pragma once

#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/file.h>

#include <QObject>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

namespace Internal {
class AutoReportManagerPrivate;
}

/// How far the file transfers to one device are, as its latest report told.
struct s_DeviceFileTransferProgress {
    std::weak_ptr<BizModel::Device> device;
    std::vector<ProtoModel::File::s_FileTransPercent> percents;
    qint64 lastTime = 0; ///< Of the latest report or reset: milliseconds of the steady clock.
    bool isTransferring = false;
};

/// Hands the reports that devices send of their own accord to the model. One per process.
///
/// Call instance() once on the application's main thread, when it has begun to use channels:
/// reports are handled on the thread that made the manager, which needs an event loop. Every
/// outcome ends in a log line of the category \c tavoro.control; a report never fails a channel.
class TAVOROCONTROL_EXPORT AutoReportManager : public QObject {
    Q_OBJECT

public:
    /// The manager; made by the first call. Null after deleteInstance().
    static AutoReportManager *instance();
    /// Ends the handling of reports for the rest of the process. To be called on the manager's
    /// thread, when no other thread uses the manager any more.
    static void deleteInstance();

    /// While true, reports are dropped: not queued, not replayed. For the application, during a
    /// task of its own. To be called on the manager's thread.
    void setIsStopAutoReport(bool stop);

    /// Copies what is known of the transfers to \a device into \a record. False, and \a record left
    /// alone, if the device never reported or is gone. From any thread.
    bool findDeviceFileTransferProgressRecord(std::weak_ptr<BizModel::Device> device,
                                              s_DeviceFileTransferProgress &record);
    /// Stores the latest report, in place of the one before. From any thread.
    void updateDeviceFileTransferProgressRecord(
        std::weak_ptr<BizModel::Device> device,
        std::vector<ProtoModel::File::s_FileTransPercent> percents);
    /// Forgets the figures of a device, but not the device. From any thread.
    void resetDeviceFileTransferProgressRecord(std::weak_ptr<BizModel::Device> device);

private:
    explicit AutoReportManager(QObject *parent);
    ~AutoReportManager() override;

    const std::unique_ptr<Internal::AutoReportManagerPrivate> d;
};

} // namespace Tavoro::Control
