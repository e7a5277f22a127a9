#pragma once

#include <tavorocontrol/proto/json/recordfields.h>
#include <tavorocontrol/proto/json/textwriter.h>

#include <limits>

namespace ajson {

/// The size of the longest text of a value; 0 if the size is unbounded, as for strings and vectors.
template <class Value>
constexpr std::size_t maxTextSize();

template <class Record, class... Members, std::size_t... Field>
constexpr std::size_t maxObjectSize(MemberTypes<Members...>, std::index_sequence<Field...>)
{
    if (!(... && maxTextSize<Members>()))
        return 0;
    return 1 + (... + (1 + KeyLiteral<Record, Field>::size + maxTextSize<Members>()));
}

template <class Value>
constexpr std::size_t maxTextSize()
{
    if constexpr (std::is_integral_v<Value>)
        return std::numeric_limits<Value>::digits10 + 1 + std::is_signed_v<Value>;
    else if constexpr (HasFields<Value>::value)
        return maxObjectSize<Value>(typename RecordFields<Value>::Types(),
                                    typename RecordFields<Value>::Indices());
    else
        return 0;
}

/// Puts the text before the value of a field: brace or comma, key and colon.
template <class Record, std::size_t Field>
char *putKey(char *at) noexcept
{
    using Key = KeyLiteral<Record, Field>;
    *at = Field == 0 ? '{' : ',';
    std::memcpy(at + 1, Key::text.data(), Key::size);
    return at + 1 + Key::size;
}

/// Puts a value of bounded size. The caller has reserved space for it.
template <class Value>
char *putValue(char *at, const Value &value) noexcept;

template <class Record, std::size_t... Field>
char *putFields(char *at, const Record &record, std::index_sequence<Field...>) noexcept
{
    record.visitFields([&at](const auto &...members) {
        (..., (at = putValue(putKey<Record, Field>(at), members)));
    });
    return at;
}

template <class Value>
char *putValue(char *at, const Value &value) noexcept
{
    if constexpr (std::is_integral_v<Value>) {
        return putInteger(at, value);
    } else {
        at = putFields(at, value, typename RecordFields<Value>::Indices());
        *at = '}';
        return at + 1;
    }
}

/// Writes a value of any size.
template <class Value>
char *writeValue(JsonWriter &writer, char *at, const Value &value);

template <class Record, std::size_t Field, class Member>
char *writeField(JsonWriter &writer, char *at, const Member &member)
{
    constexpr std::size_t size = 1 + KeyLiteral<Record, Field>::size + maxTextSize<Member>();
    at = putKey<Record, Field>(writer.begin(at, size));
    if constexpr (maxTextSize<Member>() != 0)
        return putValue(at, member);
    else
        return writeValue(writer, at, member);
}

template <class Record, std::size_t... Field>
char *writeFields(JsonWriter &writer, char *at, const Record &record, std::index_sequence<Field...>)
{
    record.visitFields([&](const auto &...members) {
        (..., (at = writeField<Record, Field>(writer, at, members)));
    });
    return at;
}

template <class Element>
char *writeVector(JsonWriter &writer, char *at, const std::vector<Element> &vector)
{
    at = writer.begin(at, 2);
    char separator = '[';
    for (const Element &element : vector) {
        at = writer.begin(at, 1);
        *at++ = separator;
        at = writeValue(writer, at, element);
        separator = ',';
    }
    at = writer.begin(at, 2);
    if (vector.empty())
        *at++ = '[';
    *at++ = ']';
    return at;
}

template <class Value>
char *writeValue(JsonWriter &writer, char *at, const Value &value)
{
    if constexpr (maxTextSize<Value>() != 0) {
        return putValue(writer.begin(at, maxTextSize<Value>()), value);
    } else if constexpr (IsVector<Value>::value) {
        return writeVector(writer, at, value);
    } else if constexpr (HasFields<Value>::value) {
        at = writeFields(writer, at, value, typename RecordFields<Value>::Indices());
        at = writer.begin(at, 1);
        *at = '}';
        return at + 1;
    } else {
        return writeString(writer, at, value);
    }
}

} // namespace ajson
