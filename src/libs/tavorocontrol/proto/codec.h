#pragma once

#include <tavorocontrol/proto/export.h>

#include <string>

/// The JSON of command bodies.
///
/// Both functions work for each record of \c Tavoro::ProtoModel and for a \c std::vector of it; the
/// library contains their readers and writers. An application compiles those of its own records
/// with TAVORO_CODEC(). The functions share no state and may be called from any thread.
namespace ajson {

/// Reads \a json, up to its first NUL, into \a record.
///
/// A field whose key does not occur keeps its value, and elements are appended to a vector: pass a
/// new record. On failure returns false; \a error then holds the position and the reason, and
/// \a record what was read before the failure. On success \a error is unchanged.
template <class Record>
TAVOROPROTO_EXPORT bool decodeRecord(const std::string &json, Record &record, std::string &error);

/// Replaces \a text by the JSON of \a record: every field, in the order of TAVORO_FIELDS(), without
/// blanks. \a text must not be part of \a record. Fails only when memory runs out, with
/// \c std::bad_alloc; \a text is then incomplete.
template <class Record>
TAVOROPROTO_EXPORT void encodeRecord(const Record &record, std::string &text);

} // namespace ajson
