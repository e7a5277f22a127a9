#pragma once

#include "filecontents.h"

#include <tavoropanel/undo/changeedits.h>

#include <tavoromodels/filesmodel.h>

#include <QHash>
#include <QPixmap>
#include <QSize>
#include <QSortFilterProxyModel>
#include <QTemporaryDir>

namespace Tavoro::Panel {

/// The images on a device, backgrounds and logos, with their pictures. They can be dragged to other
/// programs as files.
class ImagesModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using FileId = ProtoModel::s_FileIdentity;

    explicit ImagesModel(Changes &changes, QObject *parent = nullptr);

    void setDevice(DeviceSession *device);
    void setPictureSize(const QSize &size) { m_pictureSize = size; }

    /// The image of a row.
    FileId image(const QModelIndex &index) const;
    /// The name that the device has for it.
    QString name(const QModelIndex &index) const;
    const Models::FilesModel &files() const { return m_files; }

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    /// Copies of the images in a temporary folder, which lives as long as this object. Null if the
    /// content of one has not arrived yet.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    using Key = QPair<int, int>; ///< Type and number.
    struct Content {
        QByteArray bytes;
        QPixmap picture;
    };

    void showDevice();
    void keep(const QModelIndex &file, const std::string &content);
    QString description(const QModelIndex &index) const;
    Key keyOf(const QModelIndex &index) const;

    Models::FilesModel m_files;
    ChangeEdits m_edits;
    FileContents m_contents;
    QPointer<DeviceSession> m_device;
    QMetaObject::Connection m_deviceConnection;
    QHash<Key, Content> m_kept;
    QTemporaryDir m_copies;
    QSize m_pictureSize{64, 36};
};

} // namespace Tavoro::Panel
