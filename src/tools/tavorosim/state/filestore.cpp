#include "filestore.h"

#include "devicedatabase.h"
#include "simlog.h"
#include "storedrecord.h"
#include "texts.h"

#include <tavorocontrol/proto/contentmemory.h>
#include <tavorocontrol/proto/recordcodec.h>
#include <tavorowire/checksums.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <set>

TAVORO_CODEC(Tavoro::Sim::StoredFile)

namespace Tavoro::Sim {

using ProtoModel::File::s_FileDetail;

namespace {

const QString databaseName = QStringLiteral("device.sqlite");
const QString contentPattern = QStringLiteral("content-*");

/// The number in the name of a content, 0 in any other name.
quint64 numberOf(const QString &name)
{
    return name.section(QLatin1Char('-'), 1).toULongLong();
}

std::vector<DeviceDatabase::Row> rowsOf(const FileChanges::Entries &entries)
{
    std::vector<DeviceDatabase::Row> rows;
    for (const auto &[key, file] : entries) {
        rows.push_back({key, std::nullopt});
        if (file)
            rows.back().second = encodeStored(*file);
    }
    return rows;
}

} // namespace

bool IncomingContent::append(std::string_view bytes)
{
    const auto size = static_cast<qint64>(bytes.size());
    if (size > m_maxLength - m_length)
        return false;
    m_length += size;
    m_crc = SSProxy::Wire::crc32(bytes, m_crc);
    if (auto *const memory = qobject_cast<QBuffer *>(m_device.get()))
        ProtoModel::reserveForContent(memory->buffer(), bytes.size(),
                                      static_cast<std::size_t>(m_announced));
    return m_device->write(bytes.data(), size) == size;
}

FileStore::FileStore() = default;

FileStore::~FileStore() = default;

bool FileStore::open(const QString &folder, QString &error)
{
    const QDir directory(folder);
    if (!directory.mkpath(QStringLiteral("."))) {
        error = Texts::tr("cannot create the folder %1").arg(folder);
        return false;
    }
    m_folder = directory.absolutePath();
    m_database = std::make_unique<DeviceDatabase>();
    if (!m_database->open(directory.filePath(databaseName), error) || !readFiles(error))
        return false;
    dropFilesWithoutContent();
    removeUnreferenced();
    return true;
}

bool FileStore::readFiles(QString &error)
{
    std::vector<QByteArray> records;
    if (!m_database->readFiles(records, error))
        return false;
    for (const QByteArray &record : records) {
        StoredFile file;
        if (!decodeStored(record, file, error)) {
            error = Texts::tr("%1 is damaged: %2").arg(pathOf(databaseName), error);
            return false;
        }
        m_index[keyOf(file)] = file;
    }
    return true;
}

void FileStore::dropFilesWithoutContent()
{
    FileChanges changes = change();
    for (const auto &[key, file] : m_index) {
        const QString name = QString::fromStdString(file.contentName);
        m_lastName = std::max(m_lastName, numberOf(name));
        if (QFile(pathOf(name)).size() == file.size.length)
            continue;
        qCWarning(simLog, "the content of file %d of type %d is missing", key.second, key.first);
        changes.remove(key);
    }
    commit(changes);
}

/// Removes what a crash left: contents that no row names.
void FileStore::removeUnreferenced() const
{
    std::set<QString> names;
    for (const auto &[key, file] : m_index)
        names.insert(QString::fromStdString(file.contentName));
    for (const QString &name : QDir(m_folder).entryList({contentPattern}, QDir::Files)) {
        if (names.count(name) == 0)
            QFile::remove(pathOf(name));
    }
}

bool FileStore::commit(const FileChanges &changes, const std::optional<QByteArray> &setup)
{
    const FileChanges::Entries &entries = changes.entries();
    if (m_database && (!entries.empty() || setup)) {
        if (!m_database->write(rowsOf(entries), setup))
            return false;
        removeReplacedContents(entries);
    }
    applyChanges(entries, m_index);
    return true;
}

bool FileStore::readSetup(std::optional<QByteArray> &setup, QString &error)
{
    return !m_database || m_database->readSetup(setup, error);
}

/// Removes the contents that the index names and \a entries replace.
void FileStore::removeReplacedContents(const FileChanges::Entries &entries) const
{
    std::set<std::string> names;
    for (const auto &[key, file] : entries) {
        if (file)
            names.insert(file->contentName);
    }
    for (const auto &[key, file] : entries) {
        const auto old = m_index.find(key);
        if (old != m_index.end() && names.count(old->second.contentName) == 0)
            QFile::remove(pathOf(QString::fromStdString(old->second.contentName)));
    }
}

IncomingContent FileStore::beginContent(qint64 announced)
{
    IncomingContent content;
    content.m_announced = std::min(announced, m_maxUnfinishedBytes);
    content.m_maxLength = m_maxContentLength;
    content.m_name = "content-" + std::to_string(++m_lastName);
    if (m_folder.isEmpty())
        content.m_device = std::make_unique<QBuffer>();
    else
        content.m_device =
            std::make_unique<QSaveFile>(pathOf(QString::fromStdString(content.m_name)));
    content.m_device->open(QIODevice::WriteOnly); // If it cannot be opened, writing fails.
    return content;
}

bool FileStore::put(FileChanges &changes, const s_FileDetail &detail, IncomingContent content)
{
    StoredFile file;
    static_cast<s_FileDetail &>(file) = detail;
    file.size.length = static_cast<qint32>(content.length());
    file.size.hashSum = content.hashSum();
    if (auto *const saved = qobject_cast<QSaveFile *>(content.m_device.get())) {
        // commit() does not notice that flushing the last bytes fails.
        if (!saved->flush() || !saved->commit())
            return false;
        file.contentName = content.m_name;
    } else {
        file.content = static_cast<QBuffer &>(*content.m_device).data();
    }
    changes.put(std::move(file));
    return true;
}

bool FileStore::put(FileChanges &changes, const s_FileDetail &detail, std::string_view bytes)
{
    IncomingContent content = beginContent();
    return content.append(bytes) && put(changes, detail, std::move(content));
}

std::shared_ptr<QIODevice> FileStore::content(const StoredFile &file) const
{
    std::shared_ptr<QIODevice> device;
    if (m_folder.isEmpty()) {
        auto buffer = std::make_shared<QBuffer>();
        buffer->setData(file.content);
        device = buffer;
    } else {
        device = std::make_shared<QFile>(pathOf(QString::fromStdString(file.contentName)));
    }
    return device->open(QIODevice::ReadOnly) ? device : nullptr;
}

QString FileStore::pathOf(const QString &name) const
{
    return QDir(m_folder).filePath(name);
}

} // namespace Tavoro::Sim
