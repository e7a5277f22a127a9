#pragma once

#include "storedfile.h"

#include <optional>

namespace Tavoro::Sim {

/// Changes that a command prepares. They take effect with FileStore::commit(), and cost time for
/// the changed files only.
class FileChanges {
public:
    /// The new file for each changed key; none for a removed one.
    using Entries = std::map<FileKey, std::optional<StoredFile>>;

    /// \a index must outlive the changes and not change meanwhile.
    explicit FileChanges(const FileIndex &index) : m_index(index) { }

    /// The file of \a key with the changes so far; null if there is none.
    const StoredFile *find(const FileKey &key) const;
    /// Adds \a file, or replaces the one of the same key.
    void put(StoredFile file);
    /// False when there is no such file.
    bool remove(const FileKey &key);
    void removeAll();

    /// All files with the changes so far.
    FileIndex applied() const;
    const Entries &entries() const { return m_entries; }

private:
    const FileIndex &m_index;
    Entries m_entries;
};

/// Applies the changes to \a index.
void applyChanges(const FileChanges::Entries &entries, FileIndex &index);

} // namespace Tavoro::Sim
