#include "filecontents.h"

#include <tavorobizmodel/file.h>
#include <tavorocontrol/file.h>
#include <tavoromodels/filesmodel.h>
#include <tavorosession/devicesession.h>

namespace Tavoro::Panel {

namespace {

constexpr int mostNumber = 254;
/// Longer contents have no picture: fetching them would delay the operator's own transfers.
constexpr int mostBytes = 8 << 20;

} // namespace

FileContents::FileContents(const Models::FilesModel &files, IsWanted isWanted, QObject *parent)
    : QObject(parent), m_files(files), m_isWanted(isWanted)
{
    connect(&files, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) {
                look(m_files.index(first), m_files.index(last));
            });
    connect(&files, &QAbstractItemModel::dataChanged, this, &FileContents::look);
}

void FileContents::setDevice(DeviceSession *device)
{
    m_device = device;
    m_seen.clear();
    if (m_files.rowCount() > 0)
        look(m_files.index(0), m_files.index(m_files.rowCount() - 1));
}

void FileContents::look(const QModelIndex &first, const QModelIndex &last)
{
    for (int row = first.row(); row <= last.row(); ++row) {
        const QModelIndex index = m_files.index(row);
        const auto file = m_files.file(index);
        if (!file || !m_isWanted(file->identity().fileType))
            continue;
        const QVariant size = index.data(m_files.role("size"));
        QVariant &seen = m_seen[{file->identity().fileType, file->identity().fileId}];
        if (seen == size)
            continue;
        seen = size;
        const std::string content = file->detail().binary;
        if (!content.empty())
            deliver(file->identity(), content);
        else if (file->listEntry().size.length <= mostBytes)
            fetch(file->identity());
    }
}

void FileContents::fetch(const FileId &file)
{
    if (!m_device)
        return;
    m_device->files().fetch(file).then(
        this, [this, file, device = m_device](const Answer<std::string> &answer) {
            if (answer && device == m_device)
                deliver(file, answer.record());
        });
}

void FileContents::deliver(const FileId &file, const std::string &content)
{
    for (int row = 0; row < m_files.rowCount(); ++row) {
        const auto candidate = m_files.file(m_files.index(row));
        const FileId id = candidate ? candidate->identity() : FileId{-1, -1};
        if (id.fileId == file.fileId && id.fileType == file.fileType)
            Q_EMIT arrived(m_files.index(row), content);
    }
}

int freeFileNumber(const Models::FilesModel &files, int fileType, QSet<int> taken)
{
    for (int row = 0; row < files.rowCount(); ++row) {
        const auto file = files.file(files.index(row));
        if (file && file->identity().fileType == fileType)
            taken.insert(file->identity().fileId);
    }
    int number = 0;
    while (taken.contains(number))
        ++number;
    return number <= mostNumber ? number : -1;
}

} // namespace Tavoro::Panel
