#pragma once

// Writes records and vectors: the constant texts around the bodies of values, and the bodies.

#include <tavorocontrol/proto/json/integertext.h>
#include <tavorocontrol/proto/json/recordtext.h>
#include <tavorocontrol/proto/json/textwriter.h>

#include <string>
#include <utility>
#include <vector>

namespace ajson {

/// Puts a constant text in whole blocks. Overwrites bytes after it.
template <class Text>
char *putText(char *at) noexcept
{
    constexpr std::size_t block = Text::size > 8 ? 16 : 8;
    constexpr std::size_t blocks = (Text::size + block - 1) / block;
    static constexpr auto padded = joined<blocks * block - Text::size, Text>();
    if constexpr (blocks > 0)
        std::memcpy(at, padded.data(), padded.size());
    return at + Text::size;
}

/// The size of the longest text of a value, without the contents of strings and vectors.
template <class Value>
constexpr std::size_t maxFixedSize = fixedSize<Value, 20>();

/// Writes the body of a value. The caller has reserved the fixed size of the value, and \a Rest is
/// what must be reserved again after the content of a string or a vector.
template <std::size_t Rest, class Value>
char *writeBody(JsonWriter &writer, char *at, const Value &value);

template <std::size_t Rest, class Record, std::size_t... Field>
char *writeFields(JsonWriter &writer, char *at, const Record &record, std::index_sequence<Field...>)
{
    record.visitFields([&](const auto &...members) {
        (..., (at = writeBody<Rest>(writer, putText<TextBeforeField<Record, Field>>(at), members)));
    });
    return at;
}

/// Reserves space for a value with all that is fixed in it, and writes it.
template <class Value>
char *writeValue(JsonWriter &writer, char *at, const Value &value)
{
    constexpr std::size_t size = maxFixedSize<Value> + 1; // and a comma
    at = putText<OpeningText<Value>>(writer.reserve(at, size));
    return putText<ClosingText<Value>>(writeBody<size>(writer, at, value));
}

template <class Element>
char *writeElements(JsonWriter &writer, char *at, const std::vector<Element> &vector)
{
    for (const Element &element : vector) {
        at = writeValue(writer, at, element);
        *at++ = ',';
    }
    return vector.empty() ? at : at - 1; // without the last comma
}

template <std::size_t Rest, class Value>
char *writeBody(JsonWriter &writer, char *at, const Value &value)
{
    if constexpr (std::is_integral_v<Value>)
        return putInteger(at, value);
    else if constexpr (HasFields<Value>::value)
        return writeFields<Rest>(writer, at, value, typename RecordFields<Value>::Indices());
    else if constexpr (IsVector<Value>::value)
        return writer.reserve(writeElements(writer, at, value), Rest);
    else
        return writeContent(writer, at, value, Rest);
}

} // namespace ajson
