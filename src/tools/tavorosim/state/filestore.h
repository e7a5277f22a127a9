#pragma once

#include <tavorocontrol/proto/file.h>

#include <QByteArray>
#include <QIODevice>
#include <QLockFile>
#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Tavoro::Sim {

using FileKey = std::pair<qint32, qint32>; ///< Type, number.
FileKey keyOf(const ProtoModel::s_FileIdentity &id);

/// A file of the device: what is told of it, and where its content is.
struct StoredFile : ProtoModel::File::s_FileDetail {
    std::string contentName; ///< Name in the folder, if there is one.
    QByteArray content; ///< The content itself, if there is none.
    TAVORO_FIELDS(fileId, fileType, general, source, size, contentName)
};
using FileIndex = std::map<FileKey, StoredFile>;

/// Content on its way into the store. What is never placed there is forgotten.
class IncomingContent {
public:
    /// False when there is no room for it.
    bool append(std::string_view bytes);
    qint64 length() const { return m_length; }
    /// The CRC-32 of the bytes so far, the device's hash sum.
    qint32 hashSum() const { return static_cast<qint32>(m_crc); }

private:
    friend class FileStore;
    std::string m_name;
    std::unique_ptr<QIODevice> m_device;
    qint64 m_length = 0;
    quint32 m_crc = 0;
};

/// The files that the device stores, in memory or in a folder.
///
/// In a folder the contents are files of their own, never changed once they are there, and
/// \c index.json names those that count. It is replaced as a whole, by a rename: a store that was
/// cut off in the middle of a change is found as it was before or after it.
class FileStore {
public:
    /// Keeps the files in \a folder from now on, beginning with those that are there. False with a
    /// sentence in \a error.
    bool open(const QString &folder, QString &error);

    const FileIndex &index() const { return m_index; }
    /// Makes \a index the one that counts. False when it cannot be written, and nothing changes.
    bool commit(FileIndex index);

    IncomingContent receive();
    /// Enters \a content in \a index as that of \a detail, with its length and hash sum, in the
    /// place of one that is there. False when there is no room for it.
    bool place(FileIndex &index, const ProtoModel::File::s_FileDetail &detail,
               IncomingContent content);
    /// The same with bytes that are there at once.
    bool place(FileIndex &index, const ProtoModel::File::s_FileDetail &detail,
               std::string_view bytes);

    /// Reads the content as it is now, also when it is replaced meanwhile. Null when the folder has
    /// lost it.
    std::shared_ptr<QIODevice> content(const StoredFile &file) const;

    /// Keeps a text in the folder, if there is one, under \a name. It replaces the one before as a
    /// whole, or stays away: then false.
    bool keepText(const QString &name, const std::string &text) const;
    /// Reads a text that was kept; without one \a text stays without. False with a sentence in
    /// \a error.
    bool fetchText(const QString &name, std::optional<std::string> &text, QString &error) const;

private:
    bool readIndex(QString &error);
    void sweep() const;
    QString pathOf(const std::string &name) const;

    QString m_folder; ///< Empty: in memory.
    std::unique_ptr<QLockFile> m_lock;
    FileIndex m_index;
    quint64 m_lastName = 0; ///< Number in the name of the newest content.
};

} // namespace Tavoro::Sim
