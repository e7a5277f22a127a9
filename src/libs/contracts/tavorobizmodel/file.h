#pragma once

#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/file.h>

#include <QObject>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class FilePrivate;

/// One file that a device stores. Made by its device. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT File : public QObject {
    Q_OBJECT

public:
    File(const ProtoModel::File::s_FileDetail &detail, std::weak_ptr<Device> device);
    ~File() override;

    /// Stores how far a transfer of the file is.
    void setTransferProgress(const ProtoModel::File::s_FileTransPercent &progress);

    /// \name For applications
    /// What the control library itself does not call.
    /// @{
    /// What is known of the file, its content included if it was fetched.
    ProtoModel::File::s_FileDetail detail() const;
    ProtoModel::File::s_FileTransPercent transferProgress() const;
    std::weak_ptr<Device> device() const;
    /// @}

Q_SIGNALS:
    /// For applications: something of the file changed. Emitted on the thread that changed it.
    void fileChanged();

private:
    const std::unique_ptr<FilePrivate> d;
};

} // namespace Tavoro::BizModel
