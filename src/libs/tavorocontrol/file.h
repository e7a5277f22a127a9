#pragma once

#include <tavorobizmodel/enums.h>
#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/file.h>

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

class ControlHelper;

namespace Internal {
struct OperationTarget;
}

/// Manages the files that a device stores: lists, creates, deletes, renames and transfers them.
///
/// The content of a file is opaque: the library does not compute or compare hash sums. Reports
/// update only the progress of transfers in the model; the list of files is in the model after the
/// next synchronisation.
///
/// \ingroup operations
class TAVOROCONTROL_EXPORT File : public QObject {
    Q_OBJECT

public:
    /// Creates a control object for \a device, which may already be gone. Any thread.
    explicit File(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~File() override;

    /// Lists files and appends them to \a files (code 0xFA00).
    ///
    /// -1 as \a fileType or \a fileId does not filter. Only the low byte of each is sent, so files
    /// with IDs above 254 cannot be selected. If the answer cannot be decoded, \a files holds the
    /// files before the error.
    bool readDetails(int fileType, int fileId, std::vector<ProtoModel::File::s_FileDetail> &files,
                     QString &error);

    /// Reads the content of \a file into its \c binary (0xFA04). After a failure \c binary holds
    /// the packets that were received before it, or is unchanged if there were none.
    bool readBinary(ProtoModel::File::s_FileDetail &file, QString &error);
    /// Reads the content of a file into \a content (0xFA04). \a fileType and \a fileId are 0 to
    /// 254. After a failure \a content holds the packets that were received before it, or is
    /// unchanged if there were none.
    bool readBinary(int fileType, int fileId, std::string &content, QString &error);
    /// Reads the content of a file packet by packet and holds at most one packet (0xFA04).
    ///
    /// See ControlHelper::sendSyncRequest() for the callback. setCancelledState() ends the read.
    /// Unlike the overloads without a callback, the read fails if another client holds control of
    /// the device or takes it.
    bool readBinary(
        int fileType, int fileId,
        std::function<void(bool ok, double progress, const std::string &data, QString &error)>
            callback);

    /// Deletes files (0xFA01).
    bool writeDeleteFiles(const std::vector<ProtoModel::File::s_DeleteFile> &files, QString &error);
    /// Renames and moves files (0xFA02).
    bool writeFilesInfo(const std::vector<ProtoModel::File::s_ModifyFileInfo> &files,
                        QString &error);
    /// Announces files whose content follows (0xFA03).
    bool importFile(const std::vector<ProtoModel::File::s_FileInfo> &files, QString &error);
    /// Sends the content of an announced file, in as many packets as the channel needs (0xFA03).
    /// Type and ID of the file are 0 to 254.
    bool importFileBinary(const ProtoModel::s_FileIdentity &file, const std::string &content,
                          QString &error);
    /// Sends one piece of the content of an announced file (0xFA03).
    ///
    /// The piece has the index \a packetIndex, from 0, of \a totalCount. A piece that is longer
    /// than the channel's packet size is split, and its packets are then counted on their own.
    /// \a showMessage decides whether the status bar shows a success; it shows every failure.
    bool writeFileBinary(const std::string &content, BizModel::Enum::File::FileType fileType,
                         int fileId, unsigned totalCount, unsigned packetIndex, QString &error,
                         bool showMessage);
    /// Makes the device capture images (0xFA06).
    bool writeCreateImageFile(const std::vector<ProtoModel::File::s_CreateImageFile> &files,
                              QString &error);
    /// Makes the device store its state as presets (0xFA07).
    bool writeCreatePresetFile(const std::vector<ProtoModel::File::s_CreatePresetFile> &files,
                               QString &error);
    /// Makes the device store projects (0xFA08).
    bool writeCreateProjectFile(const std::vector<ProtoModel::File::s_CreateProjFile> &files,
                                QString &error);
    /// Makes the device collect logs (0xFA09).
    bool writeCreateLogFile(const std::vector<ProtoModel::File::s_CreateLogFile> &files,
                            QString &error);
    /// Makes the device create EDID files from interfaces (0xFA0B). Despite the name, the body is
    /// JSON.
    bool edidCreateFileBinary(const std::vector<ProtoModel::File::s_CreateFileInfo> &files,
                              QString &error);
    /// Applies projects (0x1601).
    bool
    writeApplyProjectFile(const std::vector<ProtoModel::ProjectFile::s_ProjectFileApply> &files,
                          QString &error);
    /// Sends nothing and returns false, with \a error unchanged.
    bool writeFile(const std::vector<ProtoModel::File::s_FileInfo> &files, QString &error);

    /// Cancels readBinary() with a callback: a running read ends at its next packet, and later ones
    /// end at once, until a call with false. Any thread; returns at once.
    void setCancelledState(bool cancelled);

    /// Applies the device's report of file transfers to the model (0xFA05). \a body is the JSON of
    /// the report. AutoReportManager calls it.
    ///
    /// Copies the elements of the report to \a percents, and emits
    /// BizModel::DeviceList::signalFilesTransferProgressChanged(). Returns false with "Decode json
    /// failed: …" in \a error for a body that cannot be decoded, and with "Device is null." if the
    /// model device is gone. Any thread; does not block.
    bool updateTransferProgress(const std::string &body,
                                std::vector<ProtoModel::File::s_FileTransPercent> &percents,
                                QString &error);

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
