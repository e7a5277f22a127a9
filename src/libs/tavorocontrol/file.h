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
struct Link;
}

/// Commands the files that a device stores: lists, creates, deletes, moves and transfers them.
///
/// Cheap to make; holds no state of the files. The content of a file is opaque: nothing here
/// computes or compares a hash sum. Every list may name many files; an empty one is sent as it
/// stands. Writes do not touch the model.
///
/// Every operation blocks its caller until the device has answered, at most for the time that the
/// device's timeout table has for the command, plus 10 s per packet where it takes several. It may
/// be called from any thread but the channels' own, where it fails with status 261. It returns true
/// for success. On failure it returns false, and \a error holds the sentence that was shown on the
/// status bar; for a packet of a split write that is refused, the reason alone; for an answer that
/// cannot be decoded, "Decode json failed: …". On success \a error is left alone. A device without
/// a channel takes every write as done, and answers every read with nothing: a list then fails to
/// decode, a content is empty.
class TAVOROCONTROL_EXPORT File : public QObject {
    Q_OBJECT

public:
    explicit File(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~File() override;

    /// Lists files (code 0xFA00) and appends them to \a files. -1 as \a fileType or \a fileId
    /// restricts nothing; of each only the low byte travels, so an id above 254 cannot be asked
    /// for. An answer that cannot be decoded gives "Decode json failed: …" in \a error; what was
    /// decoded before the fault stays in \a files.
    bool readDetails(int fileType, int fileId, std::vector<ProtoModel::File::s_FileDetail> &files,
                     QString &error);

    /// Fetches the content of \a file into its \c binary (0xFA04). After a failure it holds what
    /// had arrived; if not even the first packet came, it is left alone.
    bool readBinary(ProtoModel::File::s_FileDetail &file, QString &error);
    /// Fetches the content of a file into \a content (0xFA04). After a failure it holds what had
    /// arrived; if not even the first packet came, it is left alone.
    bool readBinary(int fileType, int fileId, std::string &content, QString &error);
    /// Fetches the content of a file packet by packet (0xFA04) and holds no more than one packet.
    ///
    /// \a callback runs on the caller's thread: with \c ok true and the packet's bytes, and the
    /// share done; or once with \c ok false and the reason, and the read has ended.
    /// setCancelledState() ends it too. So does another client that gets control of the device, and
    /// the read does not begin while one has it; the reads without a callback do not ask for that.
    /// An empty \a callback throws \c std::bad_function_call.
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
    /// Sends the content of an announced file (0xFA03), in as many packets as the channel needs.
    bool importFileBinary(const ProtoModel::s_FileIdentity &file, const std::string &content,
                          QString &error);
    /// Sends one piece of the content of an announced file (0xFA03): \a packetIndex, from 0, of \a
    /// totalCount. Pieces longer than the channel's packet are split all the same, and then count
    /// by themselves. \a showMessage decides whether success is shown on the status bar.
    bool writeFileBinary(const std::string &content, BizModel::Enum::File::FileType fileType,
                         int fileId, unsigned totalCount, unsigned packetIndex, QString &error,
                         bool showMessage);
    /// Has the device capture images (0xFA06).
    bool writeCreateImageFile(const std::vector<ProtoModel::File::s_CreateImageFile> &files,
                              QString &error);
    /// Has the device store its state as presets (0xFA07).
    bool writeCreatePresetFile(const std::vector<ProtoModel::File::s_CreatePresetFile> &files,
                               QString &error);
    /// Has the device store projects (0xFA08).
    bool writeCreateProjectFile(const std::vector<ProtoModel::File::s_CreateProjFile> &files,
                                QString &error);
    /// Has the device collect logs (0xFA09).
    bool writeCreateLogFile(const std::vector<ProtoModel::File::s_CreateLogFile> &files,
                            QString &error);
    /// Has the device make EDID files from interfaces (0xFA0B). The body is JSON, whatever the name
    /// says.
    bool edidCreateFileBinary(const std::vector<ProtoModel::File::s_CreateFileInfo> &files,
                              QString &error);
    /// Applies projects (0x1601).
    bool
    writeApplyProjectFile(const std::vector<ProtoModel::ProjectFile::s_ProjectFileApply> &files,
                          QString &error);
    /// Sends nothing and returns false, with \a error left alone.
    bool writeFile(const std::vector<ProtoModel::File::s_FileInfo> &files, QString &error);

    /// Stops a readBinary() with a callback at its next packet; may be called from any thread.
    /// Stays set: call it with false before the next such read.
    void setCancelledState(bool cancelled);

    /// Applies the device's report of file transfers to the model. \a body is the report's JSON;
    /// its elements are copied to \a percents and announced by
    /// BizModel::DeviceList::signalFilesTransferProgressChanged. False with "Decode json failed: …"
    /// for a body that cannot be decoded, and with "Device is null." if the model device is gone.
    bool updateTransferProgress(const std::string &body,
                                std::vector<ProtoModel::File::s_FileTransPercent> &percents,
                                QString &error);

private:
    Internal::Link link() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
