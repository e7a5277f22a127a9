#include "filestore.h"

#include "simlog.h"

#include <tavorocontrol/proto/recordcodec_p.h>
#include <tavorossproxy/wire/checksums.h>

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

const QString indexName = QStringLiteral("index.json");
const QString contentPattern = QStringLiteral("content-*");

std::vector<StoredFile> listOf(const FileIndex &index)
{
    std::vector<StoredFile> list;
    for (const auto &[key, file] : index)
        list.push_back(file);
    return list;
}

std::set<std::string> contentNames(const FileIndex &index)
{
    std::set<std::string> names;
    for (const auto &[key, file] : index)
        names.insert(file.contentName);
    return names;
}

/// The number in the name of a content, 0 in any other name.
quint64 numberOf(const std::string &name)
{
    return QString::fromStdString(name).section(QLatin1Char('-'), 1).toULongLong();
}

} // namespace

FileKey keyOf(const ProtoModel::s_FileIdentity &id)
{
    return {id.fileType, id.fileId};
}

bool IncomingContent::append(std::string_view bytes)
{
    const auto size = static_cast<qint64>(bytes.size());
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
    if (!readIndex(error))
        return false;
    sweep();
    return true;
}

bool FileStore::readIndex(QString &error)
{
    std::optional<std::string> text;
    if (!fetchText(indexName, text, error))
        return false;
    std::vector<StoredFile> list;
    std::string fault;
    if (text && !ajson::decodeRecord(*text, list, fault)) {
        error = QStringLiteral("%1 is damaged: %2")
                    .arg(QDir(m_folder).filePath(indexName), QString::fromStdString(fault));
        return false;
    }
    for (const StoredFile &stored : list) {
        m_lastName = std::max(m_lastName, numberOf(stored.contentName));
        if (QFile(pathOf(stored.contentName)).size() == stored.size.length)
            m_index[keyOf(stored)] = stored;
        else
            qCWarning(simLog, "the content of file %d of type %d is lost", stored.fileId,
                      stored.fileType);
    }
    return true;
}

void FileStore::sweep() const
{
    // A change that was cut off leaves contents behind that nothing names.
    const std::set<std::string> names = contentNames(m_index);
    const QDir directory(m_folder);
    for (const QString &name : directory.entryList({contentPattern}, QDir::Files)) {
        if (names.count(name.toStdString()) == 0)
            QFile::remove(directory.filePath(name));
    }
}

bool FileStore::commit(FileIndex index)
{
    if (!m_folder.isEmpty()) {
        std::string text;
        ajson::encodeRecord(listOf(index), text);
        if (!keepText(indexName, text))
            return false;
        const std::set<std::string> names = contentNames(index);
        for (const auto &[key, file] : m_index) {
            if (names.count(file.contentName) == 0)
                QFile::remove(pathOf(file.contentName));
        }
    }
    m_index = std::move(index);
    return true;
}

IncomingContent FileStore::receive()
{
    IncomingContent content;
    content.m_name = "content-" + std::to_string(++m_lastName);
    if (m_folder.isEmpty())
        content.m_device = std::make_unique<QBuffer>();
    else
        content.m_device = std::make_unique<QSaveFile>(pathOf(content.m_name));
    content.m_device->open(QIODevice::WriteOnly); // If it cannot be opened, writing fails.
    return content;
}

bool FileStore::place(FileIndex &index, const s_FileDetail &detail, IncomingContent content)
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
    index[keyOf(detail)] = std::move(file);
    return true;
}

bool FileStore::place(FileIndex &index, const s_FileDetail &detail, std::string_view bytes)
{
    IncomingContent content = receive();
    return content.append(bytes) && place(index, detail, std::move(content));
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
