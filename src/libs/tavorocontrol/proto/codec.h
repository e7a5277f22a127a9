#pragma once

#include <tavorocontrol/proto/export.h>
#include <tavorocontrol/proto/fieldlist.h>
#include <tavorocontrol/proto/jsonexception.h>
#include <tavorocontrol/proto/jsonreader.h>
#include <tavorocontrol/proto/jsonwriter.h>

#include <string>

/// The JSON of command bodies. Works for every record and for a \c std::vector of every record;
/// their readers and writers are compiled in the library.
namespace ajson {

/// Reads \a json, up to its first NUL, into \a record.
///
/// Fields whose keys do not occur keep what they hold, and vectors grow by what is read, so pass a
/// new record. False with the reason and its place in \a error, which is left alone otherwise; what
/// was read until then stays in \a record.
template <class Record>
TAVOROPROTO_EXPORT bool decodeRecord(const std::string &json, Record &record, std::string &error);

/// Writes \a record into \a text: every field, in the order of the list, without blanks.
template <class Record>
TAVOROPROTO_EXPORT void encodeRecord(const Record &record, std::string &text);

} // namespace ajson
