#pragma once

#include <tavorocontrol/proto/json/recordfields.h>

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace Tavoro::Models {

inline QString keyOf(std::string_view name)
{
    return QString::fromLatin1(name.data(), static_cast<int>(name.size()));
}

/// Returns a field of a record for a view: a record as a map, a vector as a list.
template <class Value>
QVariant toVariant(const Value &value)
{
    if constexpr (ajson::IsVector<Value>::value) {
        QVariantList list;
        for (const auto &element : value)
            list.append(toVariant(element));
        return list;
    } else if constexpr (ajson::HasFields<Value>::value) {
        QVariantMap map;
        std::size_t index = 0;
        value.visitFields([&](const auto &...fields) {
            (map.insert(keyOf(ajson::RecordFields<Value>::list[index++]), toVariant(fields)), ...);
        });
        return map;
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return QString::fromStdString(value);
    } else if constexpr (std::is_same_v<Value, bool>) {
        return value;
    } else if constexpr (std::is_unsigned_v<Value> && sizeof(Value) >= sizeof(unsigned)) {
        return static_cast<unsigned>(value);
    } else {
        return static_cast<int>(value);
    }
}

/// Returns the field of \a record with this index.
template <class Record>
QVariant fieldVariant(const Record &record, int index)
{
    QVariant result;
    record.visitFields([&](const auto &...fields) {
        int i = 0;
        ((i++ == index ? static_cast<void>(result = toVariant(fields)) : static_cast<void>(0)),
         ...);
    });
    return result;
}

} // namespace Tavoro::Models
