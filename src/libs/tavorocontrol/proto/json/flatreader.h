#pragma once

// The fastest path: whole records of integers, strings and such records, in the form in which this
// library writes them. The text between two values is compared as one.

#include <tavorocontrol/proto/json/plainreader.h>
#include <tavorocontrol/proto/json/recordtext.h>

#include <QtGlobal>

#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace ajson {

/// Integers, strings, and records that consist of these.
template <class Value, class = void>
struct IsFlat
    : std::bool_constant<std::is_integral_v<Value> || std::is_same_v<Value, std::string>> { };

template <class Record, std::size_t... Field>
constexpr bool areFlat(std::index_sequence<Field...>)
{
    return (... && IsFlat<MemberType<Record, Field>>::value);
}
template <class Record>
struct IsFlat<Record, std::enable_if_t<HasFields<Record>::value>>
    : std::bool_constant<areFlat<Record>(typename RecordFields<Record>::Indices())> { };

/// The text that follows the body of the field if \a After follows the record.
template <class Record, std::size_t Field, class After, bool IsLast>
struct TextAfterField : Joined<Symbol<'}'>, After> { };
template <class Record, std::size_t Field, class After>
struct TextAfterField<Record, Field, After, false>
    : Joined<Symbol<','>, KeyLiteral<Record, Field + 1>,
             OpeningText<MemberType<Record, Field + 1>>> { };

template <class Record, class After, std::size_t... Field>
Q_ALWAYS_INLINE const char *readFlatFields(const char *at, const char *end, Record &record,
                                           std::index_sequence<Field...>);

/// Reads the value whose opening text ends at \a at, and then \a After. Returns the place after
/// that, or null if the input has another form. Some fields of a record are then read already; the
/// caller reads all of them again.
template <class After, class Value>
Q_ALWAYS_INLINE const char *readFlat(const char *at, const char *end, Value &value)
{
    if constexpr (HasFields<Value>::value) {
        return readFlatFields<Value, After>(at, end, value,
                                            typename RecordFields<Value>::Indices());
    } else if constexpr (std::is_same_v<Value, std::string>) {
        using Rest = Joined<Symbol<'"'>, After>;
        const char *const quote = findSpecial(at, end);
        if (!startsWith<Rest>(quote, end))
            return nullptr;
        value = std::string(at, quote);
        return quote + Rest::size;
    } else {
        Value integer{};
        at = readDigits(at, integer);
        if (!at || !startsWith<After>(at, end))
            return nullptr;
        value = integer;
        return at + After::size;
    }
}

template <class Record, class After, std::size_t... Field>
Q_ALWAYS_INLINE const char *readFlatFields(const char *at, const char *end, Record &record,
                                           std::index_sequence<Field...>)
{
    constexpr std::size_t last = sizeof...(Field) - 1;
    const auto members =
        record.visitFields([](auto &...listed) { return std::forward_as_tuple(listed...); });
    (void)(...
           && (at = readFlat<TextAfterField<Record, Field, After, Field == last>>(
                   at, end, std::get<Field>(members))));
    return at;
}

/// Reads the record at \a at. Returns the place after it, or null as above.
template <class Record>
Q_ALWAYS_INLINE const char *readFlatRecord(const char *at, const char *end, Record &record)
{
    using Opening = OpeningText<Record>;
    if (!startsWith<Opening>(at, end))
        return nullptr;
    return readFlat<NoText>(at + Opening::size, end, record);
}

} // namespace ajson
