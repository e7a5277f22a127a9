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
/// The content of a file is opaque: the library does not compute or compare hash sums. Of all
/// changes, only the progress of transfers reaches the model by a report; the list of files is in
/// the model after the next synchronisation.
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
    /// with IDs above 254 cannot be selected. After a decoding error \a files holds what was
    /// decoded before it.
    bool readDetails(int fileType, int fileId, std::vector<ProtoModel::File::s_FileDetail> &files,
                     QString &error);

    /// Reads the content of \a file into its \c binary (0xFA04). After a failure it holds what was
    /// received before; it is unchanged if that is nothing.
    bool readBinary(ProtoModel::File::s_FileDetail &file, QString &error);
    /// Reads the content of a file into \a content (0xFA04). \a fileType and \a fileId are 0 to
    /// 254. After a failure \a content holds what was received before; it is unchanged if that is
    /// nothing.
    bool readBinary(int fileType, int fileId, std::string &content, QString &error);
    /// Reads the content of a file packet by packet and holds at most one packet (0xFA04).
    ///
    /// See ControlHelper::sendSyncRequest() for the callback. setCancelledState() ends the read. So
    /// does another client that takes control of the device; the read does not start while another
    /// client has control. The overloads without a callback do not check that.
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
    /// The piece is number \a packetIndex, from 0, of \a totalCount. A piece longer than the
    /// channel's packet is split; its packets then have counts of their own instead. \a showMessage
    /// decides whether the status bar shows a success; it shows every failure.
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
    /// Makes the device create EDID files from interfaces (0xFA0B). In spite of the name, the body
    /// is JSON.
    bool edidCreateFileBinary(const std::vector<ProtoModel::File::s_CreateFileInfo> &files,
                              QString &error);
    /// Applies projects (0x1601).
    bool
    writeApplyProjectFile(const std::vector<ProtoModel::ProjectFile::s_ProjectFileApply> &files,
                          QString &error);
    /// Sends nothing and returns false, with \a error unchanged.
    bool writeFile(const std::vector<ProtoModel::File::s_FileInfo> &files, QString &error);

    /// Cancels readBinary() with a callback: a running read ends at its next packet, later ones at
    /// once. The state lasts until a call with false. Any thread; returns at once.
    void setCancelledState(bool cancelled);

    /// Applies the device's report of file transfers to the model (0xFA05). \a body is the JSON of
    /// the report. AutoReportManager calls it.
    ///
    /// Copies the elements of the report to \a percents and emits
    /// BizModel::DeviceList::signalFilesTransferProgressChanged(). False with "Decode json failed:
    /// …" in \a error for a body that cannot be decoded, and with "Device is null." if the model
    /// device is gone. Any thread; does not block.
    bool updateTransferProgress(const std::string &body,
                                std::vector<ProtoModel::File::s_FileTransPercent> &percents,
                                QString &error);

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
