#pragma once

#include <tavorocontrol/proto/identities.h>

#include <QHash>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QSet>
#include <QVariant>

#include <string>

QT_BEGIN_NAMESPACE
class QModelIndex;
QT_END_NAMESPACE

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Models {
class FilesModel;
}

namespace Tavoro::Panel {

/// The contents of the files of a model, for their pictures. A content that the device model does
/// not have is fetched from the device, when the file appears and when its size or checksum
/// changes.
class FileContents : public QObject {
    Q_OBJECT

public:
    using FileId = ProtoModel::s_FileIdentity;
    /// Whether the contents of a type of files are wanted.
    using IsWanted = bool (*)(int fileType);

    /// \a files must exist as long as this object.
    FileContents(const Models::FilesModel &files, IsWanted isWanted, QObject *parent = nullptr);

    /// Sets the device of the model, after the model shows its files.
    void setDevice(DeviceSession *device);

Q_SIGNALS:
    /// The content of a row of the model has arrived.
    void arrived(const QModelIndex &file, const std::string &content);

private:
    using Key = QPair<int, int>; ///< Type and number.

    void look(const QModelIndex &first, const QModelIndex &last);
    void fetch(const FileId &file);
    void deliver(const FileId &file, const std::string &content);

    const Models::FilesModel &m_files;
    const IsWanted m_isWanted;
    QPointer<DeviceSession> m_device;
    QHash<Key, QVariant> m_seen; ///< The sizes of the contents that were delivered or requested.
};

/// The first number that no file of a type has and that is not in \a taken; -1 if there is none.
int freeFileNumber(const Models::FilesModel &files, int fileType, QSet<int> taken = {});

} // namespace Tavoro::Panel
