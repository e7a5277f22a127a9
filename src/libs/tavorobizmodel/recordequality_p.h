#pragma once

#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/json/recordfields.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavoro::BizModel {

/// Returns whether two records have equal fields, including the members that are not part of the
/// JSON.
template <class Value>
bool isEqual(const Value &a, const Value &b)
{
    if constexpr (ajson::IsVector<Value>::value) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](const auto &x, const auto &y) { return isEqual(x, y); });
    } else if constexpr (ajson::HasFields<Value>::value) {
        if constexpr (std::is_same_v<Value, ProtoModel::s_CropBody>) {
            if (!isEqual(a.rect, b.rect))
                return false;
        }
        if constexpr (std::is_same_v<Value, ProtoModel::File::s_FileDetail>) {
            if (a.binary != b.binary)
                return false;
        }
        return a.visitFields([&](const auto &...fieldsOfA) {
            return b.visitFields(
                [&](const auto &...fieldsOfB) { return (... && isEqual(fieldsOfA, fieldsOfB)); });
        });
    } else {
        return a == b;
    }
}

/// Replaces \a known by \a now. Returns false if they are equal.
template <class Value>
bool replaceIfDifferent(Value &known, Value now)
{
    if (isEqual(known, now))
        return false;
    known = std::move(now);
    return true;
}

} // namespace Tavoro::BizModel
