#pragma once

#include "request.h"

/// The commands that list, move and delete files and carry their contents.
namespace Tavoro::Sim {

/// The greatest type and number of a file: 255 in the head of a command selects all.
constexpr qint32 maxFileNumber = 254;

/// True if a file may have this identity, or this name.
bool isFileIdentity(const ProtoModel::s_FileIdentity &id);
bool isFileName(const ProtoModel::File::s_FileGeneral &general);

/// Applies \a changes to the stored files.
DeviceStatus commit(SimState &state, const FileChanges &changes);

/// Filters: position 31 the type, position 32 the number.
std::string readFiles(const SimState &state, const Request &request);
DeviceStatus writeFileDelete(SimState &state, const Request &request, Reports &reports);
/// Renames files and moves them to other types and numbers, which must be free.
DeviceStatus writeFileGeneral(SimState &state, const Request &request, Reports &reports);

/// Announces files whose contents will follow.
DeviceStatus writeFileAnnounced(SimState &state, const Request &request, Reports &reports);
/// Takes a packet of the content of an announced file. The last one stores the file if
/// length and hash sum are those of the announcement; 0 there is not checked.
DeviceStatus writeFileContent(SimState &state, const Request &request, Reports &reports);
/// Reads the content of a file.
Answer readContent(const SimState &state, const Request &request);

} // namespace Tavoro::Sim
