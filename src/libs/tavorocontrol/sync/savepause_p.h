#pragma once

#include <QString>

namespace Tavoro::BizModel {
class Device;
class SaveDeviceDataThread;
} // namespace Tavoro::BizModel

namespace Tavoro::Control::Internal {

/// Pauses the saving of devices while a device is read. Its destructor resumes saving and requests
/// that the device is saved, even if the synchronisation failed.
class SavePause {
public:
    /// Blocks until a running save has ended.
    explicit SavePause(const BizModel::Device &device);
    ~SavePause();
    SavePause(const SavePause &) = delete;
    SavePause &operator=(const SavePause &) = delete;

private:
    BizModel::SaveDeviceDataThread *const m_thread;
    QString m_ip;
    QString m_mac;
    QString m_sn;
};

} // namespace Tavoro::Control::Internal
