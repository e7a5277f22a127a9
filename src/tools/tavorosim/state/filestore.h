#pragma once

#include "filechanges.h"

#include <QIODevice>
#include <QString>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Tavoro::Sim {

class DeviceDatabase;

/// A content that is being written into the store. It is deleted unless it is put there.
class IncomingContent {
public:
    /// False when the store has no room for it, or takes no content of that length.
    bool append(std::string_view bytes);
    qint64 length() const { return m_length; }
    /// The CRC-32 of the bytes so far, the device's hash sum.
    qint32 hashSum() const { return static_cast<qint32>(m_crc); }

private:
    friend class FileStore;
    std::string m_name;
    std::unique_ptr<QIODevice> m_device;
    qint64 m_announced = 0;
    qint64 m_maxLength = 0;
    qint64 m_length = 0;
    quint32 m_crc = 0;
};

/// The files that the device stores, in memory or in a folder.
///
/// In a folder each content is a file of its own, \c content-N, which never changes once it is
/// complete. A DeviceDatabase beside them, \c device.sqlite, names those that are stored, and holds
/// the saved setup. A content is complete before a transaction names it, and is removed after a
/// transaction no longer does, so that after a crash the files are those before or after a command.
/// Contents that no row names are removed when the folder is opened.
class FileStore {
public:
    FileStore();
    ~FileStore();
    FileStore(const FileStore &) = delete;
    FileStore &operator=(const FileStore &) = delete;

    /// Keeps the files in \a folder from now on, beginning with those in it. On failure \a error
    /// holds a sentence.
    bool open(const QString &folder, QString &error);

    /// Bytes of the longest content that the store takes; at first as many as the length of a file
    /// can express.
    qint64 maxContentLength() const { return m_maxContentLength; }
    void setMaxContentLength(qint64 bytes) { m_maxContentLength = bytes; }
    /// Bytes that the unfinished contents of one connection may have together: 1 GiB in memory, no
    /// limit in a folder.
    qint64 maxUnfinishedBytes() const
    {
        return m_folder.isEmpty() ? m_maxUnfinishedBytes : noLimit;
    }
    void setMaxUnfinishedBytes(qint64 bytes) { m_maxUnfinishedBytes = bytes; }

    const FileIndex &index() const { return m_index; }
    /// A new set of changes to the present files. Commit it before you make another one.
    FileChanges change() const { return FileChanges(m_index); }
    /// Applies the changes and, if given, replaces the saved setup by \a setup, in one transaction.
    /// If writing fails, returns false and changes nothing.
    bool commit(const FileChanges &changes, const std::optional<QByteArray> &setup = {});
    /// Reads the saved setup of a store in a folder; without one \a setup stays empty. On failure
    /// \a error holds a sentence.
    bool readSetup(std::optional<QByteArray> &setup, QString &error);

    /// \a announced is the length that the client has announced; 0 if it is unknown.
    IncomingContent beginContent(qint64 announced = 0);
    /// Adds the file of \a detail to \a changes, with the length and hash sum of \a content; it
    /// replaces one of the same number. False when there is no room for it.
    bool put(FileChanges &changes, const ProtoModel::File::s_FileDetail &detail,
             IncomingContent content);
    /// The same with all bytes at once.
    bool put(FileChanges &changes, const ProtoModel::File::s_FileDetail &detail,
             std::string_view bytes);

    /// Reads the content as it is now, even if it is replaced meanwhile. Null when it is missing in
    /// the folder.
    std::shared_ptr<QIODevice> content(const StoredFile &file) const;

private:
    bool readFiles(QString &error);
    void dropFilesWithoutContent();
    void removeReplacedContents(const FileChanges::Entries &entries) const;
    void removeUnreferenced() const;
    QString pathOf(const QString &name) const;

    static constexpr qint64 noLimit = std::numeric_limits<qint64>::max();
    qint64 m_maxUnfinishedBytes = qint64{1} << 30;
    qint64 m_maxContentLength = std::numeric_limits<qint32>::max();
    QString m_folder; ///< Empty: in memory.
    FileIndex m_index;
    quint64 m_lastName = 0; ///< Number in the name of the newest content.
    std::unique_ptr<DeviceDatabase> m_database; ///< Null: in memory.
};

} // namespace Tavoro::Sim
