#pragma once

// Reads records and vectors: directly from the text while it has the expected form, and through the
// tokeniser otherwise. Either path can continue at any place where the other stopped.

#include <tavorocontrol/proto/json/plainreader.h>
#include <tavorocontrol/proto/json/valuereader.h>

#include <QtGlobal>

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

/// Progress of reading the fields of a record.
struct Progress {
    Place at; ///< Where the next key is expected; after the record if there is none.
    std::size_t expected; ///< The field whose key should come next.
    bool more; ///< Another key follows.
};

/// Takes the comma after a field, or the brace after the last field.
Q_ALWAYS_INLINE void takeSeparator(JsonReader &reader, Progress &progress)
{
    if (progress.at && (*progress.at == ',' || *progress.at == '}')) {
        progress.more = *progress.at++ == ',';
    } else {
        progress.more = takeFieldSeparator(reader, progress.at);
        progress.at = reader.place();
    }
}

/// Reads the field if its key comes next. Returns true if another field follows it.
template <class Record, std::size_t Field, class Member>
Q_ALWAYS_INLINE bool readExpectedField(JsonReader &reader, Progress &progress, Member &member)
{
    if (!startsWithKey<Record, Field>(progress.at, reader.end()))
        return false;
    const Place at = progress.at + KeyLiteral<Record, Field>::size;
    if constexpr (std::is_integral_v<Member>)
        progress.at = readScalar(reader, at, member);
    else
        progress.at = readValue(reader, at, member);
    progress.expected = Field + 1;
    takeSeparator(reader, progress);
    return progress.more;
}

/// Reads fields for as long as their keys come in the order of the list.
template <class Record, std::size_t... Field>
Q_ALWAYS_INLINE void readExpectedFields(JsonReader &reader, Progress &progress, Record &record,
                                        std::index_sequence<Field...>)
{
    const auto members =
        record.visitFields([](auto &...listed) { return std::forward_as_tuple(listed...); });
    (void)(...
           && (Field < progress.expected
               || readExpectedField<Record, Field>(reader, progress, std::get<Field>(members))));
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

/// Reads a field with any key, by its tokens. \a begin is the place of the first key.
template <class Record>
Q_NEVER_INLINE Progress readOtherField(JsonReader &reader, Progress progress, Place begin,
                                       Record &record)
{
    using Indices = typename RecordFields<Record>::Indices;
    reader.nextAt(progress.at);
    // Kept: the brace of an empty record stays current, so that it ends the enclosing record too.
    if (progress.at == begin && reader.token.isSymbol('}'))
        return {nullptr, 0, false};
    const std::size_t field = findField<Record>(takeKey(reader), Indices());
    if (field == RecordFields<Record>::count) {
        reader.next();
        skipValue(reader);
        progress.at = nullptr;
    } else {
        progress.at = readField(reader, record, field, Indices());
        progress.expected = field + 1;
    }
    takeSeparator(reader, progress);
    return progress;
}

template <class Record>
Place readObject(JsonReader &reader, Place at, Record &record)
{
    if (at && *at == '{') {
        ++at;
    } else {
        requireSymbol(reader, at, '{', "read object must start with {!");
        at = reader.place();
    }
    Progress progress{at, 0, true};
    for (;;) {
        readExpectedFields(reader, progress, record, typename RecordFields<Record>::Indices());
        if (progress.more)
            progress = readOtherField(reader, progress, at, record);
        if (!progress.more)
            return progress.at;
    }
}

/// Returns true if an element that begins with \a c can be appended before its first token is
/// fetched: the first token of a record or a vector is a symbol and cannot fail.
template <class Element>
bool beginsElement(char c)
{
    return (HasFields<Element>::value && c == '{') || (IsVector<Element>::value && c == '[');
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
            reader.nextAt(at);
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
        return readObject(reader, at, value);
    else
        return readScalar(reader, at, value);
}

} // namespace ajson
