#pragma once

#include "filecommands.h"
#include "handlers_p.h"

namespace Tavoro::Sim {

/// Makes the content of the file that \a record requests, or refuses it.
template <class Record>
using FileMaker = DeviceStatus (*)(const SimState &state, const Record &record,
                                   ProtoModel::File::s_FileDetail &detail, std::string &content);

/// Creates a file for each record of the body, and replaces existing ones, or creates none at all.
template <class Record>
DeviceStatus createEach(SimState &state, const Request &request, FileMaker<Record> make)
{
    std::vector<Record> list;
    if (!decoded(request.body, list))
        return DeviceStatus::MalformedBody;
    FileChanges changes = state.files.change();
    for (const Record &record : list) {
        if (!isFileIdentity(record) || !isFileName(record.general))
            return DeviceStatus::ValueOutOfRange;
        ProtoModel::File::s_FileDetail detail;
        static_cast<ProtoModel::s_FileIdentity &>(detail) = record;
        detail.general = record.general;
        std::string content;
        const DeviceStatus status = make(state, record, detail, content);
        if (status != DeviceStatus::Success)
            return status;
        if (!state.files.put(changes, detail, content))
            return DeviceStatus::StorageFailed;
    }
    return commit(state, changes);
}

} // namespace Tavoro::Sim
