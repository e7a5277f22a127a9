#pragma once

#include "storedfilesmodel.h"

#include <QByteArray>
#include <QHash>
#include <QPixmap>
#include <QTemporaryDir>

namespace Tavoro::Panel {

/// The images on a device, backgrounds and logos, with their pictures. They can be dragged to other
/// programs as files, and backgrounds onto layers as their sources.
class ImagesModel : public StoredFilesModel {
    Q_OBJECT

public:
    explicit ImagesModel(Changes &changes, QObject *parent = nullptr);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    /// Copies of the images in a temporary folder, which lives as long as this object. Null if the
    /// content of one has not arrived yet.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

protected:
    void forgetContents() override { m_kept.clear(); }
    void keepContent(const QModelIndex &index, const std::string &content) override;

private:
    struct Content {
        QByteArray bytes;
        QPixmap picture;
    };

    QString description(const QModelIndex &index) const;

    QHash<Key, Content> m_kept;
    QTemporaryDir m_copies;
};

} // namespace Tavoro::Panel
