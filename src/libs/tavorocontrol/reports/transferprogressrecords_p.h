#pragma once

#include <tavorocontrol/autoreportmanager.h>

#include <QMutex>

#include <memory>
#include <vector>

namespace Tavoro::Control::Internal {

/// The latest transfer report of each device. Records are never removed, even if their device is
/// gone.
///
/// All members may be called from any thread.
class TransferProgressRecords {
public:
    using WeakDevice = std::weak_ptr<BizModel::Device>;
    using Percents = std::vector<ProtoModel::File::s_FileTransPercent>;

    /// Copies the record of \a device. Returns false, with \a record unchanged, if it has no
    /// record.
    bool find(const WeakDevice &device, s_DeviceFileTransferProgress &record);
    /// Replaces the record of \a device, or adds one.
    void update(const WeakDevice &device, Percents percents);
    /// Empties the record of \a device, if there is one.
    void reset(const WeakDevice &device);

private:
    s_DeviceFileTransferProgress *recordOf(const std::shared_ptr<BizModel::Device> &device);

    std::vector<s_DeviceFileTransferProgress> m_records; // guarded by m_mutex
    QMutex m_mutex;
};

} // namespace Tavoro::Control::Internal
