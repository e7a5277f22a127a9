#pragma once

#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/file.h>

#include <QObject>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class FilePrivate;

/// One file that a device stores. Created by its device. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT File : public QObject {
    Q_OBJECT

public:
    /// For Device, which creates its files.
    File(const ProtoModel::File::s_FileDetail &detail, std::weak_ptr<Device> device);
    ~File() override;

    /// Stores the progress of a transfer of the file; \c percent is 0 to 100. Emits fileChanged().
    void setTransferProgress(const ProtoModel::File::s_FileTransPercent &progress);

    /// \name For applications
    /// The control library itself does not call these.
    /// @{

    /// Type and number; never changes.
    ProtoModel::s_FileIdentity identity() const;
    /// A copy of the record of the file. \c binary is the content of the file, or empty if the
    /// content was not read.
    ProtoModel::File::s_FileDetail detail() const;
    /// The same without the content, which may be long.
    ProtoModel::File::s_FileDetail listEntry() const;
    /// Progress of the transfer, as last reported; zeros before the first report.
    ProtoModel::File::s_FileTransPercent transferProgress() const;
    /// The device that stores the file; expired when the device is gone.
    std::weak_ptr<Device> device() const;
    /// @}

Q_SIGNALS:
    /// For applications: the record or the transfer progress changed. Emitted on the thread that
    /// changed it.
    void fileChanged();

private:
    friend class DeviceUpdater;
    /// Replaces the record by one that was read. Returns false if they are equal.
    bool assign(const ProtoModel::File::s_FileDetail &read);

    const std::unique_ptr<FilePrivate> d;
};

} // namespace Tavoro::BizModel
