#pragma once

#include "filechanges.h"

#include <QIODevice>
#include <QLockFile>
#include <QString>

#include <deque>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Tavoro::Sim {

/// Content on its way into the store. What is never placed there is forgotten.
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
    qint64 m_longest = 0;
    qint64 m_length = 0;
    quint32 m_crc = 0;
};

/// The files that the device stores, in memory or in a folder.
///
/// In a folder the contents are files of their own, never changed once they are there, and these
/// name those that count:
///
/// \code
/// index.json       all files as they were once: [file, ...]
/// change-N.json    what has changed since, N from 1: {"placed":[file, ...],"removed":[id, ...]}
/// \endcode
///
/// Each is there whole or not at all, by a rename, so that a store that was cut off in the middle
/// of a change is found as it was before or after it. The changes are taken into the index when
/// there are more of them than files, and when the folder is opened. They go in their order: those
/// that are left when that is cut off lead to the same files once more.
class FileStore {
public:
    /// Keeps the files in \a folder from now on, beginning with those that are there. False with a
    /// sentence in \a error.
    bool open(const QString &folder, QString &error);

    /// Bytes of the longest content that the store takes; at first as many as the length of a file
    /// can express.
    qint64 longestContent() const { return m_longestContent; }
    void setLongestContent(qint64 bytes) { m_longestContent = bytes; }

    const FileIndex &index() const { return m_index; }
    /// Changes of the files as they are now, to be made before any others.
    FileChanges change() const { return FileChanges(m_index); }
    /// Makes the changes. False when they cannot be written, and then nothing changes.
    bool commit(const FileChanges &changes);

    IncomingContent receive();
    /// Enters \a content in \a changes as that of \a detail, with its length and hash sum, in the
    /// place of one that is there. False when there is no room for it.
    bool place(FileChanges &changes, const ProtoModel::File::s_FileDetail &detail,
               IncomingContent content);
    /// The same with bytes that are there at once.
    bool place(FileChanges &changes, const ProtoModel::File::s_FileDetail &detail,
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
    bool readFiles(QString &error);
    /// Reads the record that was kept under \a name; none leaves it as it is.
    template <class Record>
    bool fetchRecord(const QString &name, Record &record, QString &error) const;
    void dropLost();
    void keepIndex();
    void removeUnnamed(const FileChanges::Places &places) const;
    void sweep() const;
    QString pathOf(const std::string &name) const;

    qint64 m_longestContent = std::numeric_limits<qint32>::max();
    QString m_folder; ///< Empty: in memory.
    std::unique_ptr<QLockFile> m_lock;
    FileIndex m_index;
    quint64 m_lastName = 0; ///< Number in the name of the newest content.
    /// Numbers of the changes that are not in the index yet, in their order.
    std::deque<quint64> m_changes;
    quint64 m_lastChange = 0;
};

} // namespace Tavoro::Sim
