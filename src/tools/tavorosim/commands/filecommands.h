#pragma once

#include "request.h"

/// The commands that list, move and delete files and carry their contents.
namespace Tavoro::Sim {

/// The greatest type and number of a file that the head of a command can name: 255 names all.
constexpr qint32 mostFileNumber = 254;

/// Whether a file can be called so.
bool isFileIdentity(const ProtoModel::s_FileIdentity &id);
bool isFileName(const ProtoModel::File::s_FileGeneral &general);

/// Makes \a index the one that counts.
DeviceStatus commit(SimState &state, const FileChanges &changes);

/// Filters: position 31 the type, position 32 the number.
std::string readFiles(const SimState &state, const Request &request);
DeviceStatus writeFileDelete(SimState &state, const Request &request, Reports &reports);
/// Renames files and moves them to other types and numbers, where no file may be.
DeviceStatus writeFileGeneral(SimState &state, const Request &request, Reports &reports);

/// Takes note of files whose contents will follow.
DeviceStatus writeFileAnnounced(SimState &state, const Request &request, Reports &reports);
/// Takes a packet of the content of an announced file. The last one puts the file in its place, if
/// length and hash sum are those of the announcement; 0 there is not checked.
DeviceStatus writeFileContent(SimState &state, const Request &request, Reports &reports);
/// Answers with the content of a file.
Answer readContent(const SimState &state, const Request &request);

} // namespace Tavoro::Sim
