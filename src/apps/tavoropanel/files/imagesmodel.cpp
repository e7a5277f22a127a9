#include "imagesmodel.h"

#include <tavoropanel/details/shownvalues.h>
#include <tavoropanel/sources/layersources.h>

#include <tavorobizmodel/enums.h>

#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include <memory>

namespace Tavoro::Panel {

namespace {

bool isImage(int fileType)
{
    return fileType == BizModel::Enum::File::Background || fileType == BizModel::Enum::File::Logo;
}

/// The image in the middle of a transparent picture of this size.
QPixmap centred(const QImage &image, const QSize &size)
{
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    const QImage scaled = image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPainter painter(&picture);
    painter.drawImage((size.width() - scaled.width()) / 2, (size.height() - scaled.height()) / 2,
                      scaled);
    return picture;
}

/// Writes a copy of an image under its own name in a folder of its own.
QUrl writeCopy(const QString &folder, const QString &name, const QByteArray &bytes)
{
    const QString safe = QFileInfo(name).fileName();
    QFile file(folder + QLatin1Char('/') + (safe.isEmpty() ? QStringLiteral("image") : safe));
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return isWritten ? QUrl::fromLocalFile(file.fileName()) : QUrl();
}

} // namespace

ImagesModel::ImagesModel(Changes &changes, QObject *parent)
    : StoredFilesModel(changes, isImage, parent)
{ }

QVariant ImagesModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return QString(name(index) + QLatin1Char('\n') + description(index));
    case Qt::DecorationRole: {
        const QPixmap picture = m_kept.value(keyOf(file(index))).picture;
        return picture.isNull() ? QIcon::fromTheme(QStringLiteral("image-x-generic"))
                                : QIcon(picture);
    }
    case Qt::AccessibleTextRole:
        return name(index);
    case Qt::AccessibleDescriptionRole:
    case Qt::ToolTipRole:
        return description(index);
    default:
        return StoredFilesModel::data(index, role);
    }
}

QString ImagesModel::description(const QModelIndex &index) const
{
    const QVariantMap size = StoredFilesModel::data(index, files().role("size")).toMap();
    const FileId id = file(index);
    //: Type of the file, size of the picture, length of the file
    return tr("%1, %2, %3")
        .arg(fileTypeText(id.fileType), sizeText(size),
             bytesText(size.value(QStringLiteral("length"))));
}

void ImagesModel::keepContent(const QModelIndex &index, const std::string &content)
{
    const QByteArray bytes = QByteArray::fromStdString(content);
    const QImage image = QImage::fromData(bytes);
    m_kept.insert(keyOf(file(index)),
                  {bytes, image.isNull() ? QPixmap() : centred(image, pictureSize())});
    Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
}

// Dragging images to other programs

Qt::ItemFlags ImagesModel::flags(const QModelIndex &index) const
{
    return StoredFilesModel::flags(index)
        | (index.isValid() ? Qt::ItemIsDragEnabled : Qt::ItemIsDropEnabled);
}

QStringList ImagesModel::mimeTypes() const
{
    return {QStringLiteral("text/uri-list")};
}

QMimeData *ImagesModel::mimeData(const QModelIndexList &indexes) const
{
    QList<QUrl> urls;
    for (const QModelIndex &index : indexes) {
        const Key key = keyOf(file(index));
        const QString folder =
            m_copies.filePath(QStringLiteral("%1-%2").arg(key.first).arg(key.second));
        const QByteArray bytes = m_kept.value(key).bytes;
        const QUrl url = !bytes.isEmpty() && QDir().mkpath(folder)
            ? writeCopy(folder, name(index), bytes)
            : QUrl();
        if (url.isEmpty())
            return nullptr;
        urls << url;
    }
    auto *const data = new QMimeData;
    data->setUrls(urls);
    const FileId first = file(indexes.value(0));
    if (first.fileType == BizModel::Enum::File::Background)
        setSource(*data, {FileSource, static_cast<quint32>(first.fileId)});
    return data;
}

} // namespace Tavoro::Panel
