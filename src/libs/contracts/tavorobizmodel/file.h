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

    /// Stores how far a transfer of the file is: \c percent is 0 to 100. Emits fileChanged().
    void setTransferProgress(const ProtoModel::File::s_FileTransPercent &progress);

    /// \name For applications
    /// The control library itself does not call these.
    /// @{

    /// A copy of everything that is known of the file. \c binary is the content of the file, and
    /// empty if it was not fetched.
    ProtoModel::File::s_FileDetail detail() const;
    /// As last reported; zeros before the first report.
    ProtoModel::File::s_FileTransPercent transferProgress() const;
    /// Expired when the device is gone.
    std::weak_ptr<Device> device() const;
    /// @}

Q_SIGNALS:
    /// For applications: the transfer progress changed. Emitted on the thread that changed it.
    void fileChanged();

private:
    const std::unique_ptr<FilePrivate> d;
};

} // namespace Tavoro::BizModel
