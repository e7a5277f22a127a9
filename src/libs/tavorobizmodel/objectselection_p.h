#pragma once

#include "devicecontents_p.h"

#include <tavorobizmodel/deviceupdate.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace Tavoro::BizModel {

/// \name Filters of reads
/// Return whether a filter selects an object.
/// @{
bool selects(const s_InterfaceFilter &filter, const Interface &interface);
bool selects(const s_ScreenFilter &filter, const Screen &screen);
bool selects(const s_LayerFilter &filter, const Layer &layer);
bool selects(const s_FileFilter &filter, const File &file);
/// @}

/// Return whether a filter selects everything.
/// @{
bool selectsAll(const s_InterfaceFilter &filter);
bool selectsAll(const s_ScreenFilter &filter);
bool selectsAll(const s_LayerFilter &filter);
bool selectsAll(const s_FileFilter &filter);
/// @}

/// Returns the objects that a device has after a read of those that \a filter selects. \a present
/// are its objects before the read, in their order, and \a read those that were read.
template <class Object, class Filter>
ObjectTable<Object> mergeRead(const std::vector<std::shared_ptr<Object>> &present,
                              const ObjectTable<Object> &read, const Filter &filter)
{
    if (selectsAll(filter))
        return read;
    std::vector<std::shared_ptr<Object>> merged;
    for (const auto &object : present) {
        if (read.contains(objectId(*object)) || !selects(filter, *object))
            merged.push_back(object);
    }
    for (const auto &object : read.values()) {
        if (std::find(present.begin(), present.end(), object) != present.end())
            continue;
        const ObjectId id = objectId(*object);
        merged.insert(std::find_if(merged.begin(), merged.end(),
                                   [&id](const auto &other) { return objectId(*other) > id; }),
                      object);
    }
    ObjectTable<Object> table;
    for (const auto &object : merged)
        table.assign(objectId(*object), object);
    return table;
}

} // namespace Tavoro::BizModel
