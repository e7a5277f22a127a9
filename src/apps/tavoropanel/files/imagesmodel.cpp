#include "imagesmodel.h"

#include <tavoropanel/details/shownvalues.h>

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/file.h>
#include <tavorosession/devicesession.h>

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
    : QSortFilterProxyModel(parent), m_edits(changes), m_contents(m_files, isImage)
{
    m_files.setEditHandler(&m_edits);
    setSourceModel(&m_files);
    connect(&m_contents, &FileContents::arrived, this, &ImagesModel::keep);
}

void ImagesModel::setDevice(DeviceSession *device)
{
    disconnect(m_deviceConnection);
    m_device = device;
    m_edits.setDevice(device);
    if (device)
        m_deviceConnection =
            connect(device, &DeviceSession::deviceChanged, this, &ImagesModel::showDevice);
    showDevice();
}

void ImagesModel::showDevice()
{
    m_kept.clear();
    m_files.setDevice(m_device ? m_device->device() : nullptr);
    m_contents.setDevice(m_device);
}

ImagesModel::FileId ImagesModel::image(const QModelIndex &index) const
{
    const auto file = m_files.file(mapToSource(index));
    return file ? file->identity() : FileId();
}

QString ImagesModel::name(const QModelIndex &index) const
{
    return QSortFilterProxyModel::data(index, Qt::DisplayRole).toString();
}

ImagesModel::Key ImagesModel::keyOf(const QModelIndex &index) const
{
    const FileId id = image(index);
    return {id.fileType, id.fileId};
}

QVariant ImagesModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return QString(name(index) + QLatin1Char('\n') + description(index));
    case Qt::DecorationRole: {
        const QPixmap picture = m_kept.value(keyOf(index)).picture;
        return picture.isNull() ? QIcon::fromTheme(QStringLiteral("image-x-generic"))
                                : QIcon(picture);
    }
    case Qt::AccessibleTextRole:
        return name(index);
    case Qt::AccessibleDescriptionRole:
    case Qt::ToolTipRole:
        return description(index);
    default:
        return QSortFilterProxyModel::data(index, role);
    }
}

QString ImagesModel::description(const QModelIndex &index) const
{
    const QVariantMap size = QSortFilterProxyModel::data(index, m_files.role("size")).toMap();
    const FileId id = image(index);
    //: Type of the file, size of the picture, length of the file
    return tr("%1, %2, %3")
        .arg(fileTypeText(id.fileType), sizeText(size),
             bytesText(size.value(QStringLiteral("length"))));
}

bool ImagesModel::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    const auto file = m_files.file(m_files.index(row));
    return file && isImage(file->identity().fileType);
}

void ImagesModel::keep(const QModelIndex &file, const std::string &content)
{
    const QModelIndex index = mapFromSource(file);
    if (!index.isValid())
        return;
    const QByteArray bytes = QByteArray::fromStdString(content);
    const QImage image = QImage::fromData(bytes);
    m_kept.insert(keyOf(index),
                  {bytes, image.isNull() ? QPixmap() : centred(image, m_pictureSize)});
    Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
}

// Dragging images to other programs

Qt::ItemFlags ImagesModel::flags(const QModelIndex &index) const
{
    return QSortFilterProxyModel::flags(index)
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
        const Key key = keyOf(index);
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
    return data;
}

} // namespace Tavoro::Panel
