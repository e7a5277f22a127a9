#pragma once

#include <tavorocontrol/proto/file.h>

#include <QByteArray>

#include <map>
#include <string>
#include <utility>

namespace Tavoro::Sim {

using FileKey = std::pair<qint32, qint32>; ///< Type, number.
FileKey keyOf(const ProtoModel::s_FileIdentity &id);

/// A file of the device: its record, and where its content is.
struct StoredFile : ProtoModel::File::s_FileDetail {
    std::string contentName; ///< Name of the content file in the folder; empty in memory.
    QByteArray content; ///< The content itself in memory.
    TAVORO_FIELDS(fileId, fileType, general, source, size, contentName)
};
using FileIndex = std::map<FileKey, StoredFile>;

} // namespace Tavoro::Sim
