#pragma once

// Properties of a record at compile time.

#include <tavorocontrol/proto/json/fieldlist.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace ajson {

template <class Record, class = void>
struct HasFields : std::false_type { };
template <class Record>
struct HasFields<Record, std::void_t<decltype(Record::fieldList())>> : std::true_type { };

template <class Type>
struct IsVector : std::false_type { };
template <class Element>
struct IsVector<std::vector<Element>> : std::true_type { };

/// The types that a field can have: text, integers, records, and vectors of these.
template <class Type>
struct IsFieldType
    : std::bool_constant<
          std::is_integral_v<Type> || std::is_same_v<Type, std::string> || HasFields<Type>::value> {
};
template <class Element>
struct IsFieldType<std::vector<Element>> : IsFieldType<Element> { };
template <>
struct IsFieldType<char> : std::false_type { };
template <>
struct IsFieldType<wchar_t> : std::false_type { };
template <>
struct IsFieldType<char16_t> : std::false_type { };
template <>
struct IsFieldType<char32_t> : std::false_type { };

/// The types of a record's members, in the order of the list.
template <class... Members>
struct MemberTypes {
    template <std::size_t Field>
    using Type = std::tuple_element_t<Field, std::tuple<Members...>>;

    static constexpr std::size_t count = sizeof...(Members);
    static constexpr bool areSupported = (... && IsFieldType<Members>::value);
};

struct MemberTypesOf {
    template <class... Members>
    constexpr MemberTypes<Members...> operator()(const Members &...) const
    {
        return {};
    }
};

/// The class of a member function; for an inherited function, the base.
template <class Class, class Result, class Argument>
Class classOf(Result (Class::*member)(Argument) const);

/// Whether a record declares its own field list. A record that only inherits one would be written
/// without its own members.
template <class Record>
struct HasOwnFields
    : std::is_same<Record,
                   decltype(classOf(&Record::template visitFields<const MemberTypesOf &>))> { };

template <class Record>
struct RecordFields {
    using Types = decltype(std::declval<const Record &>().visitFields(MemberTypesOf()));
    using Indices = std::make_index_sequence<Types::count>;

    static constexpr std::size_t count = Types::count;
    static constexpr FieldList list{Record::fieldList()};
};

/// The key of a field with its quotes and its colon.
template <class Record, std::size_t Field>
struct KeyLiteral {
    static constexpr std::string_view name = RecordFields<Record>::list[Field];
    static constexpr std::size_t size = name.size() + 3;

    static constexpr std::array<char, size> make()
    {
        std::array<char, size> literal{};
        literal[0] = '"';
        for (std::size_t i = 0; i < name.size(); ++i)
            literal[i + 1] = name[i];
        literal[size - 2] = '"';
        literal[size - 1] = ':';
        return literal;
    }
    static constexpr std::array<char, size> text = make();
};

} // namespace ajson
