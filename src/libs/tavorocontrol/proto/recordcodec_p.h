#pragma once

#include "recordreader_p.h"
#include "recordwriter_p.h"

#include <tavorocontrol/proto/codec.h>

namespace ajson {

template <class Record>
bool decodeRecord(const std::string &json, Record &record, std::string &error)
{
    try {
        JsonReader reader(json.c_str(), json.size());
        // What follows the value is cut into one token, and then forgotten.
        fetch(reader, readValue(reader, reader.place(), record));
    } catch (const std::exception &e) { // the codec's own exception is one
        error = e.what();
        return false;
    }
    return true;
}

template <class Record>
void encodeRecord(const Record &record, std::string &text)
{
    JsonWriter writer;
    writer.cursor = writeValue(writer, writer.cursor, record);
    text.assign(writer.start, writer.cursor);
}

/// Whether a record can be read and written, told by the assertion that fails.
template <class Record>
constexpr bool checkRecord()
{
    static_assert(HasFields<Record>::value, "a record declares its keys with TAVORO_FIELDS");
    if constexpr (HasFields<Record>::value) {
        using Fields = RecordFields<Record>;
        static_assert(HasOwnFields<Record>::value,
                      "a record that extends another declares its own keys");
        static_assert(Fields::count > 0, "a record has at least one field");
        static_assert(Fields::list.size() <= FieldList::maxSize, "a record has too many fields");
        static_assert(Fields::count == Fields::list.size(), "one member for each name of the list");
        static_assert(!Fields::list.hasRepeatedName(), "a record lists each field once");
        static_assert(
            Fields::Types::areSupported,
            "a field is a bool, an integer, a std::string, a record or a vector of these");
    }
    return true;
}

} // namespace ajson

/// Compiles the readers and writers of a record and of a vector of it. Stands once per record, at
/// global scope of one source file.
// NOLINTBEGIN(bugprone-macro-parentheses): a type stands in no parentheses
#define TAVORO_CODEC(Record)                                                                    \
    static_assert(ajson::checkRecord<Record>());                                                \
    template TAVOROPROTO_EXPORT bool ajson::decodeRecord(const std::string &, Record &,         \
                                                         std::string &);                        \
    template TAVOROPROTO_EXPORT bool ajson::decodeRecord(const std::string &,                   \
                                                         std::vector<Record> &, std::string &); \
    template TAVOROPROTO_EXPORT void ajson::encodeRecord(const Record &, std::string &);        \
    template TAVOROPROTO_EXPORT void ajson::encodeRecord(const std::vector<Record> &,           \
                                                         std::string &);
// NOLINTEND(bugprone-macro-parentheses)
