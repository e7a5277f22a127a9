#include "filechanges.h"

namespace Tavoro::Sim {

FileKey keyOf(const ProtoModel::s_FileIdentity &id)
{
    return {id.fileType, id.fileId};
}

const StoredFile *FileChanges::find(const FileKey &key) const
{
    if (const auto changed = m_places.find(key); changed != m_places.end())
        return changed->second ? &*changed->second : nullptr;
    const auto file = m_index.find(key);
    return file != m_index.end() ? &file->second : nullptr;
}

void FileChanges::place(StoredFile file)
{
    const FileKey key = keyOf(file);
    m_places[key] = std::move(file);
}

bool FileChanges::remove(const FileKey &key)
{
    if (!find(key))
        return false;
    m_places[key].reset();
    return true;
}

void FileChanges::removeAll()
{
    m_places.clear();
    for (const auto &[key, file] : m_index)
        m_places[key].reset();
}

FileIndex FileChanges::applied() const
{
    FileIndex index = m_index;
    makeChanges(m_places, index);
    return index;
}

void makeChanges(const FileChanges::Places &places, FileIndex &index)
{
    for (const auto &[key, file] : places) {
        if (file)
            index[key] = *file;
        else
            index.erase(key);
    }
}

} // namespace Tavoro::Sim
