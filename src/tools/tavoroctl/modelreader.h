#pragma once

#include "console.h"

#include <tavorocontrol/devicelist.h>

#include <QObject>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// Reads whole devices into the model, one at a time, and draws the progress.
///
/// Belongs to the main thread, whose event loop must turn.
class ModelReader : public QObject {
public:
    /// \a ended is called behind each read with whether all of the device was read.
    ModelReader(Console &console, std::function<void(bool)> ended);

    /// Begins. False when \a device has no channel.
    bool start(const std::shared_ptr<BizModel::Device> &device);

private:
    bool isReadWhole() const;

    Console &m_console;
    std::shared_ptr<BizModel::Device> m_device; ///< That is read, or was the last one.
    QString m_lastRead; ///< What the status bar told of the read before.
    Control::DeviceList m_list;
};

/// The device of the model's list with the identity of \a device; null when there is none.
std::shared_ptr<BizModel::Device> listedDevice(const BizModel::Device &device);

/// Reads \a device into the model and returns when that has ended; whether all of it was read.
bool readModel(Console &console, const std::shared_ptr<BizModel::Device> &device);

} // namespace Tavoro::Ctl
