#pragma once

// The constant texts in the JSON of a record. The punctuation and the keys between two values are
// one text:
//
//   {"fileId":1,"general":{"name":"logo"},"length":5}
//   oooooooooo oooooooooooooooooooo    ooooooooooooo c
//
// A value therefore consists of its opening text (o), its body, and its closing text (c), which
// precedes the opening text of the next field.

#include <tavorocontrol/proto/json/literal.h>
#include <tavorocontrol/proto/json/recordfields.h>

#include <cstddef>
#include <string>
#include <type_traits>
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

template <class Value, std::size_t Digits>
constexpr std::size_t fixedSize();

template <class Record, std::size_t Digits, std::size_t... Field>
constexpr std::size_t fixedSizeOfFields(std::index_sequence<Field...>)
{
    return (
        ...
        + (1 + KeyLiteral<Record, Field>::size + fixedSize<MemberType<Record, Field>, Digits>()));
}

/// The size of a value's text if each integer takes up \a Digits characters, without the contents
/// of strings and vectors.
template <class Value, std::size_t Digits>
constexpr std::size_t fixedSize()
{
    if constexpr (std::is_integral_v<Value>)
        return Digits;
    else if constexpr (HasFields<Value>::value)
        return 1 + fixedSizeOfFields<Value, Digits>(typename RecordFields<Value>::Indices());
    else
        return 2; // quotes or brackets
}

} // namespace ajson
