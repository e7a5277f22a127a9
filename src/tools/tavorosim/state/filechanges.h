#pragma once

#include "storedfile.h"

#include <optional>

namespace Tavoro::Sim {

/// What a command is about to change of the files. It costs as much as what it changes, however
/// many files there are, and nothing happens to them before FileStore::commit().
class FileChanges {
public:
    /// What becomes of each place that changes: the file that is there then, or none.
    using Places = std::map<FileKey, std::optional<StoredFile>>;

    /// \a index outlives the changes and stays as it is.
    explicit FileChanges(const FileIndex &index) : m_index(index) { }

    /// The file that is there with the changes so far, null when there is none.
    const StoredFile *find(const FileKey &key) const;
    /// Puts \a file into its place, also when another one is there.
    void place(StoredFile file);
    /// False when there is no such file.
    bool remove(const FileKey &key);
    void removeAll();

    /// All files with the changes so far.
    FileIndex applied() const;
    const Places &places() const { return m_places; }

private:
    const FileIndex &m_index;
    Places m_places;
};

/// Makes the changes in \a index.
void makeChanges(const FileChanges::Places &places, FileIndex &index);

} // namespace Tavoro::Sim
