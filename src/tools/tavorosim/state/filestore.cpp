#include "filestore.h"

#include "simlog.h"

#include <tavorocontrol/proto/recordcodec.h>
#include <tavorowire/checksums.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <set>

namespace Tavoro::Sim {

/// One commit, as it is kept.
struct StoredChange {
    std::vector<StoredFile> placed;
    std::vector<ProtoModel::s_FileIdentity> removed;
    TAVORO_FIELDS(placed, removed)
};

} // namespace Tavoro::Sim

TAVORO_CODEC(Tavoro::Sim::StoredFile)
TAVORO_CODEC(Tavoro::Sim::StoredChange)

namespace Tavoro::Sim {

using ProtoModel::File::s_FileDetail;

namespace {

const QString indexName = QStringLiteral("index.json");
const QString changePattern = QStringLiteral("change-*.json");

/// Changes that are always kept beside the index, however few files there are.
constexpr std::size_t fewestChanges = 64;

QString changeName(quint64 number)
{
    return QStringLiteral("change-%1.json").arg(number);
}

std::vector<StoredFile> listOf(const FileIndex &index)
{
    std::vector<StoredFile> list;
    for (const auto &[key, file] : index)
        list.push_back(file);
    return list;
}

/// The number in the name of a content or a change, 0 in any other name.
quint64 numberOf(const QString &name)
{
    return name.section(QLatin1Char('-'), 1).section(QLatin1Char('.'), 0, 0).toULongLong();
}

StoredChange recordOf(const FileChanges::Places &places)
{
    StoredChange change;
    for (const auto &[key, file] : places) {
        if (file)
            change.placed.push_back(*file);
        else
            change.removed.push_back({key.second, key.first});
    }
    return change;
}

FileChanges::Places placesOf(const StoredChange &change)
{
    FileChanges::Places places;
    for (const StoredFile &file : change.placed)
        places[keyOf(file)] = file;
    for (const ProtoModel::s_FileIdentity &id : change.removed)
        places[keyOf(id)].reset();
    return places;
}

} // namespace

bool IncomingContent::append(std::string_view bytes)
{
    const auto size = static_cast<qint64>(bytes.size());
    if (size > m_longest - m_length)
        return false;
    m_length += size;
    m_crc = SSProxy::Wire::crc32(bytes, m_crc);
    return m_device->write(bytes.data(), size) == size;
}

bool FileStore::open(const QString &folder, QString &error)
{
    const QDir directory(folder);
    if (!directory.mkpath(QStringLiteral("."))) {
        error = QStringLiteral("cannot make the folder %1").arg(folder);
        return false;
    }
    m_lock = std::make_unique<QLockFile>(directory.filePath(QStringLiteral("lock")));
    if (!m_lock->tryLock()) {
        error = QStringLiteral("the folder %1 is in use or cannot be written").arg(folder);
        return false;
    }
    m_folder = directory.absolutePath();
    if (!readFiles(error))
        return false;
    dropLost();
    if (!m_changes.empty())
        keepIndex();
    sweep();
    return true;
}

bool FileStore::readFiles(QString &error)
{
    std::vector<StoredFile> list;
    if (!fetchRecord(indexName, list, error))
        return false;
    makeChanges(placesOf({list, {}}), m_index);
    for (const QString &name : QDir(m_folder).entryList({changePattern}, QDir::Files))
        m_changes.push_back(numberOf(name));
    std::sort(m_changes.begin(), m_changes.end());
    for (const quint64 number : m_changes) {
        StoredChange change;
        if (!fetchRecord(changeName(number), change, error))
            return false;
        makeChanges(placesOf(change), m_index);
        m_lastChange = number;
    }
    return true;
}

template <class Record>
bool FileStore::fetchRecord(const QString &name, Record &record, QString &error) const
{
    std::optional<std::string> text;
    if (!fetchText(name, text, error))
        return false;
    std::string fault;
    if (!text || ajson::decodeRecord(*text, record, fault))
        return true;
    error = QStringLiteral("%1 is damaged: %2")
                .arg(QDir(m_folder).filePath(name), QString::fromStdString(fault));
    return false;
}

void FileStore::dropLost()
{
    for (auto file = m_index.begin(); file != m_index.end();) {
        const StoredFile &stored = file->second;
        m_lastName = std::max(m_lastName, numberOf(QString::fromStdString(stored.contentName)));
        const bool isThere = QFile(pathOf(stored.contentName)).size() == stored.size.length;
        if (!isThere)
            qCWarning(simLog, "the content of file %d of type %d is lost", stored.fileId,
                      stored.fileType);
        file = isThere ? std::next(file) : m_index.erase(file);
    }
}

/// What was cut off leaves contents and changes behind that nothing names.
void FileStore::sweep() const
{
    std::set<QString> names;
    for (const auto &[key, file] : m_index)
        names.insert(QString::fromStdString(file.contentName));
    for (const quint64 number : m_changes)
        names.insert(changeName(number));
    const QDir directory(m_folder);
    const QStringList patterns{QStringLiteral("content-*"), QStringLiteral("change-*")};
    for (const QString &name : directory.entryList(patterns, QDir::Files)) {
        if (names.count(name) == 0)
            QFile::remove(directory.filePath(name));
    }
}

bool FileStore::commit(const FileChanges &changes)
{
    const FileChanges::Places &places = changes.places();
    if (!m_folder.isEmpty() && !places.empty()) {
        std::string text;
        ajson::encodeRecord(recordOf(places), text);
        if (!keepText(changeName(m_lastChange + 1), text))
            return false;
        m_changes.push_back(++m_lastChange);
        removeUnnamed(places);
    }
    makeChanges(places, m_index);
    if (m_changes.size() > std::max(fewestChanges, m_index.size()))
        keepIndex();
    return true;
}

/// Takes the changes into the index. Where there is no room for that they stay.
void FileStore::keepIndex()
{
    std::string text;
    ajson::encodeRecord(listOf(m_index), text);
    if (!keepText(indexName, text))
        return;
    for (; !m_changes.empty(); m_changes.pop_front())
        QFile::remove(QDir(m_folder).filePath(changeName(m_changes.front())));
}

/// The contents that the index names, and no longer will.
void FileStore::removeUnnamed(const FileChanges::Places &places) const
{
    std::set<std::string> names;
    for (const auto &[key, file] : places) {
        if (file)
            names.insert(file->contentName);
    }
    for (const auto &[key, file] : places) {
        const auto old = m_index.find(key);
        if (old != m_index.end() && names.count(old->second.contentName) == 0)
            QFile::remove(pathOf(old->second.contentName));
    }
}

IncomingContent FileStore::receive()
{
    IncomingContent content;
    content.m_longest = m_longestContent;
    content.m_name = "content-" + std::to_string(++m_lastName);
    if (m_folder.isEmpty())
        content.m_device = std::make_unique<QBuffer>();
    else
        content.m_device = std::make_unique<QSaveFile>(pathOf(content.m_name));
    content.m_device->open(QIODevice::WriteOnly); // If it cannot be opened, writing fails.
    return content;
}

bool FileStore::place(FileChanges &changes, const s_FileDetail &detail, IncomingContent content)
{
    StoredFile file;
    static_cast<s_FileDetail &>(file) = detail;
    file.size.length = static_cast<qint32>(content.length());
    file.size.hashSum = content.hashSum();
    if (auto *const saved = qobject_cast<QSaveFile *>(content.m_device.get())) {
        if (!saved->commit())
            return false;
        file.contentName = content.m_name;
    } else {
        file.content = static_cast<QBuffer &>(*content.m_device).data();
    }
    changes.place(std::move(file));
    return true;
}

bool FileStore::place(FileChanges &changes, const s_FileDetail &detail, std::string_view bytes)
{
    IncomingContent content = receive();
    return content.append(bytes) && place(changes, detail, std::move(content));
}

std::shared_ptr<QIODevice> FileStore::content(const StoredFile &file) const
{
    std::shared_ptr<QIODevice> device;
    if (m_folder.isEmpty()) {
        auto buffer = std::make_shared<QBuffer>();
        buffer->setData(file.content);
        device = buffer;
    } else {
        device = std::make_shared<QFile>(pathOf(file.contentName));
    }
    return device->open(QIODevice::ReadOnly) ? device : nullptr;
}

bool FileStore::keepText(const QString &name, const std::string &text) const
{
    if (m_folder.isEmpty())
        return true;
    QSaveFile file(QDir(m_folder).filePath(name));
    const auto size = static_cast<qint64>(text.size());
    return file.open(QIODevice::WriteOnly) && file.write(text.data(), size) == size
        && file.commit();
}

bool FileStore::fetchText(const QString &name, std::optional<std::string> &text,
                          QString &error) const
{
    QFile file(QDir(m_folder).filePath(name));
    if (m_folder.isEmpty() || !file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("cannot read %1: %2").arg(file.fileName(), file.errorString());
        return false;
    }
    text = file.readAll().toStdString();
    return true;
}

QString FileStore::pathOf(const std::string &name) const
{
    return QDir(m_folder).filePath(QString::fromStdString(name));
}

} // namespace Tavoro::Sim
