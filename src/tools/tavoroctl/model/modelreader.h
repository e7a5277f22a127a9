#pragma once

#include <tavorocontrol/devicelist.h>
#include <tavoroctl/output/console.h>

#include <QObject>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// Reads whole devices into the model, one at a time, and shows the progress.
///
/// A read sets the device's clock, which some devices count as a write that takes control. The
/// reader gives control up after the read. Where another client has control, the clock may not be
/// set: that is reported, and the read counts as complete.
///
/// Belongs to the main thread, whose event loop must run.
class ModelReader : public QObject {
public:
    /// \a ended is called after each read with whether all of the device was read.
    ModelReader(Console &console, std::function<void(bool)> ended);

    /// Starts reading \a device. False if it has no channel.
    bool start(const std::shared_ptr<BizModel::Device> &device);

private:
    void follow(bool isFailure, const QString &text);
    void finish(bool success);
    bool isReadWhole() const;

    Console &m_console;
    std::shared_ptr<BizModel::Device> m_device; ///< The device of the present or the last read.
    QString m_lastText; ///< The last text of the status bar.
    int m_failures = 0; ///< Failures that the status bar showed during the read.
    int m_failedWrites = 0; ///< The part of m_failures that belongs to writes.
    const std::function<void(bool)> m_ended;
    Control::DeviceList m_list;
};

/// The device in the model's list with the identity of \a device; null if there is none.
std::shared_ptr<BizModel::Device> listedDevice(const BizModel::Device &device);

/// Reads \a device into the model. Returns whether all of it was read.
bool readModel(Console &console, const std::shared_ptr<BizModel::Device> &device);

} // namespace Tavoro::Ctl
