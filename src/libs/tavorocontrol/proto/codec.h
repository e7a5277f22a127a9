#pragma once

#include <tavorocontrol/proto/export.h>

#include <string>

/// The JSON of command bodies.
///
/// Both functions work for every record of \c Tavoro::ProtoModel and for a \c std::vector of every
/// record; their readers and writers are compiled in the library. An application compiles those of
/// its own records with TAVORO_CODEC(). The functions share no state: any thread may call them at
/// any time.
namespace ajson {

/// Reads \a json, up to its first NUL, into \a record.
///
/// A field whose key does not occur keeps its value, and a vector grows by what is read: pass a new
/// record. On failure returns false, and \a error holds the place and the reason; \a record then
/// holds what was read before the failure. On success \a error is unchanged.
template <class Record>
TAVOROPROTO_EXPORT bool decodeRecord(const std::string &json, Record &record, std::string &error);

/// Replaces \a text by the JSON of \a record: every field, in the order of the list, without
/// blanks. Fails only when memory runs out, with \c std::bad_alloc.
template <class Record>
TAVOROPROTO_EXPORT void encodeRecord(const Record &record, std::string &text);

} // namespace ajson
