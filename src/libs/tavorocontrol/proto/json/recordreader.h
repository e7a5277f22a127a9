#pragma once

// Reads records and vectors: directly from the text while it has the expected form, and through the
// tokeniser otherwise. Either path can continue at any place where the other stopped.

#include <tavorocontrol/proto/json/flatreader.h>
#include <tavorocontrol/proto/json/plainreader.h>
#include <tavorocontrol/proto/json/recordtext.h>
#include <tavorocontrol/proto/json/valuereader.h>

#include <QtGlobal>

#include <algorithm>
#include <tuple>

namespace ajson {

template <class Value>
inline Place readValue(JsonReader &reader, Place at, Value &value);

/// Takes the current token as the value.
template <class Value>
void assignToken(JsonReader &reader, Value &value)
{
    if constexpr (std::is_same_v<Value, std::string>)
        stringValue(reader, value);
    else if constexpr (std::is_same_v<Value, bool>)
        value = boolValue(reader);
    else if constexpr (std::is_unsigned_v<Value>)
        value = static_cast<Value>(unsignedValue(reader));
    else
        value = static_cast<Value>(signedValue(reader));
}

/// Reads a value that is a single token. Not inlined, so that the fast path stays small.
template <class Value>
Q_NEVER_INLINE Place readToken(JsonReader &reader, Place at, Value &value)
{
    fetch(reader, at);
    assignToken(reader, value);
    return reader.place();
}

template <class Value>
Q_ALWAYS_INLINE Place readScalar(JsonReader &reader, Place at, Value &value)
{
    const Place after = at ? readPlain(at, reader.end(), value) : nullptr;
    return after ? after : readToken(reader, at, value);
}

/// Progress of reading the fields of a record. Passed by value, so that it stays in registers.
struct Progress {
    static constexpr std::size_t complete = FieldList::maxSize + 1;

    Place at; ///< After the last value, or after the brace that opens the record.
    std::size_t expected; ///< The field whose key should come next, or \c complete.
};

/// The text between the value of the previous field and that of the field.
template <class Record, std::size_t Field>
struct FieldStart : Joined<Symbol<','>, KeyLiteral<Record, Field>> { };
template <class Record>
struct FieldStart<Record, 0> : KeyLiteral<Record, 0> { };

/// Reads the field if its key comes next. Returns true if the place after it is known.
template <class Record, std::size_t Field, class Member>
Q_ALWAYS_INLINE bool readExpectedField(JsonReader &reader, Progress &progress, Member &member)
{
    using Start = FieldStart<Record, Field>;
    if (!startsWith<Start>(progress.at, reader.end()))
        return false;
    const Place at = progress.at + Start::size;
    if constexpr (std::is_integral_v<Member>)
        progress.at = readScalar(reader, at, member);
    else
        progress.at = readValue(reader, at, member);
    progress.expected = Field + 1;
    return progress.at != nullptr;
}

/// Reads fields for as long as their keys come in the order of the list.
template <class Record, std::size_t... Field>
Q_ALWAYS_INLINE Progress readExpectedFields(JsonReader &reader, Progress progress, Record &record,
                                            std::index_sequence<Field...>)
{
    const auto members =
        record.visitFields([](auto &...listed) { return std::forward_as_tuple(listed...); });
    (void)(...
           && (Field < progress.expected
               || readExpectedField<Record, Field>(reader, progress, std::get<Field>(members))));
    return progress;
}

template <class Record, std::size_t... Field>
Place readField(JsonReader &reader, Record &record, std::size_t field,
                std::index_sequence<Field...>)
{
    Place at = nullptr;
    record.visitFields([&](auto &...members) {
        (void)(... || (Field == field && (at = readValue(reader, reader.place(), members), true)));
    });
    return at;
}

template <class Record, std::size_t... Field>
std::size_t findField(std::string_view key, std::index_sequence<Field...>)
{
    std::size_t field = 0;
    (void)(... || (key == RecordFields<Record>::list[Field] || (++field, false)));
    return field;
}

/// Reads a field with any key, by its tokens, beginning with the comma before it. \a begin is the
/// place after the brace that opens the record, where no comma is expected.
template <class Record>
Q_NEVER_INLINE Progress readOtherField(JsonReader &reader, Progress progress, Place begin,
                                       Record &record)
{
    using Indices = typename RecordFields<Record>::Indices;
    const bool isFirst = progress.at == begin;
    if (!isFirst && !takeFieldSeparator(reader, progress.at))
        return {reader.place(), Progress::complete};
    reader.readTokenAt(isFirst ? begin : reader.place());
    // Kept: the brace of an empty record stays current, so that it ends the enclosing record too.
    if (isFirst && reader.token.isSymbol('}'))
        return {nullptr, Progress::complete};
    const std::size_t field = findField<Record>(takeKey(reader), Indices());
    if (field == RecordFields<Record>::count) {
        reader.next();
        skipValue(reader);
        return {nullptr, progress.expected};
    }
    return {readField(reader, record, field, Indices()), field + 1};
}

template <class Record>
Q_NEVER_INLINE Place readObject(JsonReader &reader, Place at, Record &record)
{
    if (at && *at == '{') {
        ++at;
    } else {
        requireSymbol(reader, at, '{', "read object must start with {!");
        at = reader.place();
    }
    Progress progress{at, 0};
    do {
        if (progress.at) {
            progress = readExpectedFields(reader, progress, record,
                                          typename RecordFields<Record>::Indices());
            if (progress.at && *progress.at == '}' && progress.at != at)
                return progress.at + 1;
        }
        progress = readOtherField(reader, progress, at, record);
    } while (progress.expected != Progress::complete);
    return progress.at;
}

/// Reads a record in one pass over constant texts if it has the form in which this library writes
/// it, and otherwise from its beginning again: the fields that were read get the same values again.
template <class Record>
Place readRecord(JsonReader &reader, Place at, Record &record)
{
    if constexpr (IsFlat<Record>::value) {
        if (at) {
            if (const Place after = readFlatRecord(at, reader.end(), record))
                return after;
        }
    }
    return readObject(reader, at, record);
}

/// Returns true if an element that begins with \a c can be appended before its first token is
/// fetched: the first token of a record or a vector is a symbol and cannot fail.
template <class Element>
bool beginsElement(char c)
{
    return (HasFields<Element>::value && c == '{') || (IsVector<Element>::value && c == '[');
}

/// Reserves memory for the elements of the vector that a body consists of, so that it need not grow
/// if every element has all its keys. The memory is at most as large as the body.
template <class Element>
void reserveElements(const JsonReader &reader, std::vector<Element> &vector)
{
    constexpr std::size_t shortest = std::max(fixedSize<Element, 1>() + 1, sizeof(Element));
    vector.reserve(vector.size() + reader.length() / shortest + 1);
}

template <class Element>
Place readElement(JsonReader &reader, Place at, std::vector<Element> &vector)
{
    constexpr std::size_t firstCapacity = 4; // most lists are short, and grow in one step then
    if (vector.capacity() == 0)
        vector.reserve(firstCapacity);
    vector.emplace_back();
    if constexpr (std::is_same_v<Element, bool>) {
        vector.back() = boolValue(reader);
        return reader.place();
    } else {
        return readValue(reader, at, vector.back());
    }
}

template <class Element>
Place readVector(JsonReader &reader, Place at, std::vector<Element> &vector)
{
    if (at && *at == '[') {
        ++at;
    } else {
        requireSymbol(reader, at, '[', "array must start with [.");
        at = reader.place();
    }
    for (;;) {
        if (!beginsElement<Element>(*at)) {
            reader.readTokenAt(at);
            at = nullptr;
            if (reader.token.isSymbol(']'))
                return reader.place();
        }
        at = readElement(reader, at, vector);
        if (at && *at == ',') {
            ++at;
        } else if (at && *at == ']') {
            return at + 1;
        } else {
            const bool more = takeElementSeparator(reader, at);
            at = reader.place();
            if (!more)
                return at;
        }
    }
}

template <class Value>
inline Place readValue(JsonReader &reader, Place at, Value &value)
{
    if constexpr (IsVector<Value>::value)
        return readVector(reader, at, value);
    else if constexpr (HasFields<Value>::value)
        return readRecord(reader, at, value);
    else
        return readScalar(reader, at, value);
}

} // namespace ajson
