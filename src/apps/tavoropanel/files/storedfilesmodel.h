#pragma once

#include "filecontents.h"

#include <tavoropanel/undo/changeedits.h>

#include <tavorocontrol/proto/identities.h>
#include <tavoromodels/filesmodel.h>

#include <QPair>
#include <QPointer>
#include <QSize>
#include <QSortFilterProxyModel>

#include <string>

namespace Tavoro::Panel {

class Changes;

/// The files of some types on a device, with pictures of their contents. Each kind of file derives
/// a model, which keeps what its pictures need of the contents.
class StoredFilesModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using FileId = ProtoModel::s_FileIdentity;

    void setDevice(DeviceSession *device);
    void setPictureSize(const QSize &size) { m_pictureSize = size; }

    /// The file of a row.
    FileId file(const QModelIndex &index) const;
    /// The name that the device has for it.
    QString name(const QModelIndex &index) const;
    /// All files of the device.
    const Models::FilesModel &files() const { return m_files; }

protected:
    using Key = QPair<int, int>; ///< Type and number.

    /// \a isWanted selects the types of files.
    StoredFilesModel(Changes &changes, FileContents::IsWanted isWanted, QObject *parent);

    /// Forgets all contents.
    virtual void forgetContents() = 0;
    /// Keeps the content of a row, which has arrived.
    virtual void keepContent(const QModelIndex &index, const std::string &content) = 0;

    static Key keyOf(const FileId &file) { return {file.fileType, file.fileId}; }
    const QSize &pictureSize() const { return m_pictureSize; }
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    void showDevice();

    Models::FilesModel m_files;
    ChangeEdits m_edits;
    const FileContents::IsWanted m_isWanted;
    FileContents m_contents;
    QPointer<DeviceSession> m_device;
    QMetaObject::Connection m_deviceConnection;
    QSize m_pictureSize{64, 36};
};

} // namespace Tavoro::Panel
