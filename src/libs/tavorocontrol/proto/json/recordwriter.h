#pragma once

// Writes records and vectors. The punctuation and the keys between two values are one constant
// text, put with the value after it:
//
//   {"fileId":1,"general":{"name":"logo"},"length":5}
//   oooooooooo oooooooooooooooooooo    ooooooooooooo c
//
// A value therefore consists of its opening text (o), its body, and its closing text (c), which
// precedes the opening text of the next field.

#include <tavorocontrol/proto/json/integertext.h>
#include <tavorocontrol/proto/json/literal.h>
#include <tavorocontrol/proto/json/recordfields.h>
#include <tavorocontrol/proto/json/textwriter.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace ajson {

/// The text before the body of a value.
template <class Value, class = void>
struct OpeningText : NoText { };
template <>
struct OpeningText<std::string> : Symbol<'"'> { };
template <class Element>
struct OpeningText<std::vector<Element>> : Symbol<'['> { };

/// The text after the body of a value.
template <class Value, class = void>
struct ClosingText : NoText { };
template <>
struct ClosingText<std::string> : Symbol<'"'> { };
template <class Element>
struct ClosingText<std::vector<Element>> : Symbol<']'> { };

template <class Record, std::size_t Field>
using MemberType = typename RecordFields<Record>::Types::template Type<Field>;

template <class Record>
struct OpeningText<Record, std::enable_if_t<HasFields<Record>::value>>
    : Joined<Symbol<'{'>, KeyLiteral<Record, 0>, OpeningText<MemberType<Record, 0>>> { };
template <class Record>
struct ClosingText<Record, std::enable_if_t<HasFields<Record>::value>>
    : Joined<ClosingText<MemberType<Record, RecordFields<Record>::count - 1>>, Symbol<'}'>> { };

/// The text between the bodies of two fields.
template <class Record, std::size_t Field>
struct TextBeforeField : Joined<ClosingText<MemberType<Record, Field - 1>>, Symbol<','>,
                                KeyLiteral<Record, Field>, OpeningText<MemberType<Record, Field>>> {
};
/// The opening text of the record contains that of its first field.
template <class Record>
struct TextBeforeField<Record, 0> : NoText { };

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
constexpr std::size_t maxFixedSize();

template <class Record, std::size_t... Field>
constexpr std::size_t maxFieldsSize(std::index_sequence<Field...>)
{
    return (...
            + (TextBeforeField<Record, Field>::size + maxFixedSize<MemberType<Record, Field>>()));
}

template <class Value>
constexpr std::size_t maxFixedSize()
{
    std::size_t size = OpeningText<Value>::size + ClosingText<Value>::size;
    if constexpr (std::is_integral_v<Value>)
        size += std::numeric_limits<Value>::digits10 + 1 + std::is_signed_v<Value>;
    else if constexpr (HasFields<Value>::value)
        size += maxFieldsSize<Value>(typename RecordFields<Value>::Indices());
    return size;
}

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
    constexpr std::size_t size = maxFixedSize<Value>() + 1; // and a comma
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
