#pragma once

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/json/recordreader.h>
#include <tavorocontrol/proto/json/recordwriter.h>

#include <exception>
#include <string>
#include <vector>

/// \file
/// The readers and writers of records as templates. Include this header in a source file that uses
/// TAVORO_CODEC(). To call the codec, codec.h is enough and compiles faster.

namespace ajson {

template <class Record>
bool decodeRecord(const std::string &json, Record &record, std::string &error)
{
    try {
        JsonReader reader(json.c_str(), json.size());
        if constexpr (IsVector<Record>::value)
            reserveElements(reader, record);
        // One more token is fetched after the value, and ignored.
        fetch(reader, readValue(reader, reader.place(), record));
    } catch (const std::exception &e) { // ajson::exception among them
        error = e.what();
        return false;
    }
    return true;
}

template <class Record>
void encodeRecord(const Record &record, std::string &text)
{
    JsonWriter writer(text);
    writer.finish(writeValue(writer, writer.start(), record));
}

/// Returns true for every record that can be read and written. Any other type fails to compile,
/// with an assertion that says why.
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

/// Compiles \c ajson::decodeRecord() and \c ajson::encodeRecord() for \a Record and for a
/// \c std::vector of it. Use it once per record, at global scope, in one source file. \a Record is
/// the qualified name of the type, without template arguments.
///
/// Works for the records of an application as well:
/// \code
/// namespace Wall {
/// struct s_Blackout {
///     qint32 enable = 0;
///     qint32 time = 0;
///     TAVORO_FIELDS(enable, time)
/// };
/// } // namespace Wall
///
/// TAVORO_CODEC(Wall::s_Blackout)
/// \endcode
///
/// A type that the codec does not support fails to compile, and the error message says why.
// NOLINTBEGIN(bugprone-macro-parentheses): a type cannot stand in parentheses
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
