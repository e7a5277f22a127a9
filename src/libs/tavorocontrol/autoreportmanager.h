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

/// The latest report of file transfers to one device.
struct s_DeviceFileTransferProgress {
    std::weak_ptr<BizModel::Device> device; ///< The device that reported.
    /// Progress of each file in the latest report, in percent. Empty after a reset.
    std::vector<ProtoModel::File::s_FileTransPercent> percents;
    qint64 lastTime = 0; ///< Time of the latest report or reset: milliseconds of the steady clock.
    bool isTransferring = false; ///< True after a report, false after a reset.
};

/// Applies the unsolicited reports of all devices to the model. One object per process.
///
/// Call instance() on the application's main thread before channels are used: the manager handles
/// reports on the thread that created it, which needs an event loop. Each report is logged under
/// the category \c tavoro.control. A report that cannot be applied does not affect its channel. A
/// report of a device that is not in BizModel::DeviceList is dropped.
class TAVOROCONTROL_EXPORT AutoReportManager : public QObject {
    Q_OBJECT

public:
    /// Returns the manager, which the first call creates; null after deleteInstance(). Any thread;
    /// that of the first caller handles the reports.
    static AutoReportManager *instance();
    /// Deletes the manager. No reports are handled for the rest of the process. Call it on the
    /// manager's thread, while no other thread uses the manager.
    static void deleteInstance();

    /// Drops all reports from a call with true until a call with false; they are not applied later.
    /// An application can use it during a task that reports would disturb. Call it on the manager's
    /// thread.
    void setIsStopAutoReport(bool stop);

    /// Copies the latest transfer report of \a device to \a record. Returns false, with \a record
    /// unchanged, if the device has not reported any transfer or is gone. Any thread; does not
    /// block.
    bool findDeviceFileTransferProgressRecord(std::weak_ptr<BizModel::Device> device,
                                              s_DeviceFileTransferProgress &record);
    /// Replaces the transfer report of \a device by \a percents. The manager calls it for each
    /// report. Any thread; does not block.
    void updateDeviceFileTransferProgressRecord(
        std::weak_ptr<BizModel::Device> device,
        std::vector<ProtoModel::File::s_FileTransPercent> percents);
    /// Empties the transfer report of \a device. Does nothing if the device has not reported any
    /// transfer. Any thread; does not block.
    void resetDeviceFileTransferProgressRecord(std::weak_ptr<BizModel::Device> device);

private:
    explicit AutoReportManager(QObject *parent);
    ~AutoReportManager() override;

    const std::unique_ptr<Internal::AutoReportManagerPrivate> d;
};

} // namespace Tavoro::Control
