#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <QString>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

namespace Tavoro::SSProxy::Internal {

/// Collects the devices that answer a query, for a thread that waits for them. Any thread.
class FoundDevices {
public:
    /// Adds a device, unless it was added before or there are too many.
    void add(const ProtoModel::DeviceBaseInfo &device);
    /// Makes await() end with \a error.
    void fail(const QString &error);
    /// Waits until \a time has passed or, unless \a enough is 0, until that many devices were
    /// added. Returns the devices. After fail() returns at once, with the reason in \a error.
    std::vector<ProtoModel::DeviceBaseInfo> await(std::chrono::milliseconds time, int enough,
                                                  QString &error);

private:
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    std::vector<ProtoModel::DeviceBaseInfo> m_devices;
    QString m_error;
};

} // namespace Tavoro::SSProxy::Internal
