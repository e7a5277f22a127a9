#pragma once

#include <tavorosession/export.h>
#include <tavorosession/outcome.h>
#include <tavorosession/pendingcall.h>
#include <tavorosession/trackedcall.h>

#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/identities.h>

#include <QString>

#include <memory>
#include <string>
#include <vector>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Tavoro {

namespace SessionInternal {
class CallStarter;
}

/// The files of a device: transfers of their contents, and presets. Get it from
/// DeviceSession::files() for each use; it does not keep the session alive.
///
/// Transfers have a lane of their own: other calls do not wait for them, and they are carried out
/// one after the other. A transfer is never repeated. docs/session.md says what the device holds
/// after a transfer that was cancelled or that failed.
///
/// All members must be called on the session's thread; none blocks.
class TAVOROSESSION_EXPORT DeviceFiles {
public:
    /// For DeviceSession.
    explicit DeviceFiles(SessionInternal::CallStarter &device) : m_device(device) { }

    /// \name Sending
    ///
    /// Announces a file and sends its content (0xFA03). The file replaces one with the same type
    /// and ID. \a file names it; the library sets the length in \c size, and sends the other values
    /// of \c size as they are. Type and ID are 0 to 254, and a content has less than 2 GiB;
    /// otherwise the outcome is NotSent, and nothing is sent.
    /// @{

    /// Sends \a content.
    PendingTransfer send(const ProtoModel::File::s_FileInfo &file, std::string content);
    /// Sends what \a content holds from its position to its end. It must know its size, as files
    /// and buffers do. It is read on another thread: do not use it before the end of the transfer.
    /// If the session is closed or deleted, the outcome of a transfer under way is delivered at
    /// once, but \a content may still be read. Do not use it before the Session has been destroyed;
    /// its destructor waits for that thread.
    PendingTransfer send(const ProtoModel::File::s_FileInfo &file,
                         std::shared_ptr<QIODevice> content);
    /// Sends the content of the local file \a path. The outcome is NotSent if it cannot be read.
    PendingTransfer sendFrom(const ProtoModel::File::s_FileInfo &file, const QString &path);
    /// @}

    /// \name Fetching
    ///
    /// Reads the content of a file (0xFA04), also while another client controls the device. The
    /// device sends the content as it was when the transfer began.
    /// @{

    /// Fetches the content into the result of the call. It is complete only if the outcome is Done.
    PendingContent fetch(const ProtoModel::s_FileIdentity &file);
    /// Fetches the content and writes it to \a target as it arrives; only one packet is in memory.
    /// \a target is written on another thread: do not use it before the end of the transfer. After
    /// a failure it holds the packets that arrived before. If the session is closed or deleted, the
    /// outcome of a transfer under way is delivered at once, but \a target may still be written. Do
    /// not use it before the Session has been destroyed; its destructor waits for that thread.
    PendingTransfer fetch(const ProtoModel::s_FileIdentity &file,
                          std::shared_ptr<QIODevice> target);
    /// Fetches the content into the local file \a path, which appears or is replaced when all of
    /// the content has arrived; otherwise it stays as it is.
    PendingTransfer fetchTo(const ProtoModel::s_FileIdentity &file, const QString &path);
    /// @}

    /// \name Presets
    ///
    /// A preset is a file that the device makes of its screens. Each of these is one command, which
    /// the device carries out as a whole, and waits its turn among the other calls of the device.
    /// The model follows.
    /// @{

    /// Stores the state of \a screens with their layers as the preset \a file with this name
    /// (0xFA07). An existing file with the same type and ID is replaced.
    PendingCall<Outcome> savePreset(const ProtoModel::s_FileIdentity &file, const std::string &name,
                                    const std::vector<ProtoModel::s_ScreenId> &screens);
    /// Applies a preset (0x1501). The device defines the values of \a applyType.
    PendingCall<Outcome> applyPreset(const ProtoModel::s_FileIdentity &file, int applyType = 0);
    /// Renames a preset or another file (0xFA02).
    PendingCall<Outcome> rename(const ProtoModel::s_FileIdentity &file, const std::string &name);
    /// Moves a file to a type and ID that are free (0xFA02); the name \a name is part of the
    /// command.
    PendingCall<Outcome> move(const ProtoModel::s_FileIdentity &file,
                              const ProtoModel::s_FileIdentity &destination,
                              const std::string &name);
    /// Deletes a preset or another file (0xFA01).
    PendingCall<Outcome> remove(const ProtoModel::s_FileIdentity &file);
    /// @}

private:
    SessionInternal::CallStarter &m_device;
};

} // namespace Tavoro
