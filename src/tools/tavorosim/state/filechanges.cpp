#include "filechanges.h"

namespace Tavoro::Sim {

FileKey keyOf(const ProtoModel::s_FileIdentity &id)
{
    return {id.fileType, id.fileId};
}

const StoredFile *FileChanges::find(const FileKey &key) const
{
    if (const auto changed = m_entries.find(key); changed != m_entries.end())
        return changed->second ? &*changed->second : nullptr;
    const auto file = m_index.find(key);
    return file != m_index.end() ? &file->second : nullptr;
}

void FileChanges::put(StoredFile file)
{
    const FileKey key = keyOf(file);
    m_entries[key] = std::move(file);
}

bool FileChanges::remove(const FileKey &key)
{
    if (!find(key))
        return false;
    m_entries[key].reset();
    return true;
}

void FileChanges::removeAll()
{
    m_entries.clear();
    for (const auto &[key, file] : m_index)
        m_entries[key].reset();
}

FileIndex FileChanges::applied() const
{
    FileIndex index = m_index;
    applyChanges(m_entries, index);
    return index;
}

void applyChanges(const FileChanges::Entries &entries, FileIndex &index)
{
    for (const auto &[key, file] : entries) {
        if (file)
            index[key] = *file;
        else
            index.erase(key);
    }
}

} // namespace Tavoro::Sim
