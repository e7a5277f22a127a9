#include "storedfilesmodel.h"

#include <tavorobizmodel/file.h>
#include <tavorosession/devicesession.h>

namespace Tavoro::Panel {

StoredFilesModel::StoredFilesModel(Changes &changes, FileContents::IsWanted isWanted,
                                   QObject *parent)
    : QSortFilterProxyModel(parent),
      m_edits(changes),
      m_isWanted(isWanted),
      m_contents(m_files, isWanted)
{
    m_files.setEditHandler(&m_edits);
    setSourceModel(&m_files);
    connect(&m_contents, &FileContents::arrived, this,
            [this](const QModelIndex &file, const std::string &content) {
                const QModelIndex index = mapFromSource(file);
                if (index.isValid())
                    keepContent(index, content);
            });
}

/// The device in the model does not exist before the first connection.
void StoredFilesModel::setDevice(DeviceSession *device)
{
    disconnect(m_deviceConnection);
    m_device = device;
    m_edits.setDevice(device);
    if (device)
        m_deviceConnection =
            connect(device, &DeviceSession::deviceChanged, this, &StoredFilesModel::showDevice);
    showDevice();
}

void StoredFilesModel::showDevice()
{
    forgetContents();
    m_files.setDevice(m_device ? m_device->device() : nullptr);
    m_contents.setDevice(m_device);
}

StoredFilesModel::FileId StoredFilesModel::file(const QModelIndex &index) const
{
    const auto file = m_files.file(mapToSource(index));
    return file ? file->identity() : FileId();
}

QString StoredFilesModel::name(const QModelIndex &index) const
{
    return QSortFilterProxyModel::data(index, Qt::DisplayRole).toString();
}

bool StoredFilesModel::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    const auto file = m_files.file(m_files.index(row));
    return file && m_isWanted(file->identity().fileType);
}

} // namespace Tavoro::Panel
