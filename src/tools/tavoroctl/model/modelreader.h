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

/// Reads whole devices into the model, one at a time, and draws the progress.
///
/// A read begins with a write, that of the device's clock. It would give the tool control of a
/// device that nobody controls: that is given up again behind the read. Of a device that another
/// client controls the clock cannot be set: that is told, and the read counts as whole all the
/// same.
///
/// Belongs to the main thread, whose event loop must turn.
class ModelReader : public QObject {
public:
    /// \a ended is called behind each read with whether all of the device was read.
    ModelReader(Console &console, std::function<void(bool)> ended);

    /// Begins. False when \a device has no channel.
    bool start(const std::shared_ptr<BizModel::Device> &device);

private:
    void follow(bool isFailure, const QString &text);
    void finish(bool success);
    bool isReadWhole() const;

    Console &m_console;
    std::shared_ptr<BizModel::Device> m_device; ///< That is read, or was the last one.
    QString m_lastTold; ///< By the status bar.
    int m_failures = 0; ///< That the status bar told during the read,
    int m_failedWrites = 0; ///< and those of them that are no reads.
    const std::function<void(bool)> m_ended;
    Control::DeviceList m_list;
};

/// The device of the model's list with the identity of \a device; null when there is none.
std::shared_ptr<BizModel::Device> listedDevice(const BizModel::Device &device);

/// Reads \a device into the model and returns when that has ended; whether all of it was read.
bool readModel(Console &console, const std::shared_ptr<BizModel::Device> &device);

} // namespace Tavoro::Ctl
