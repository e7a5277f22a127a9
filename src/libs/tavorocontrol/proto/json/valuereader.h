#pragma once

// The exact road: records and values by their tokens.

#include <tavorocontrol/proto/export.h>
#include <tavorocontrol/proto/json/jsonreader.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ajson {

/// Where reading goes on. Not null: the next token is due and begins, blanks aside, at this place.
/// Null: it has been fetched already and is the reader's current one.
using Place = const char *;

/// Makes the token at \a at current unless that is so.
inline void fetch(JsonReader &reader, Place at)
{
    if (at)
        reader.nextAt(at);
}

/// \name What the current token is worth
/// The cursor does not move.
/// @{

/// Of both integers the low bits belong to the field, without a check of the range.
TAVOROPROTO_EXPORT std::uint64_t unsignedValue(const JsonReader &reader);
TAVOROPROTO_EXPORT std::uint64_t signedValue(const JsonReader &reader);
TAVOROPROTO_EXPORT bool boolValue(const JsonReader &reader);

/// On a bad escape \a value holds what stands before it.
TAVOROPROTO_EXPORT void stringValue(const JsonReader &reader, std::string &value);

/// @}

/// Fetches what is due and throws \a words unless it is that symbol.
TAVOROPROTO_EXPORT void requireSymbol(JsonReader &reader, Place at, char symbol, const char *words);

/// Takes the current token as a key, makes the colon behind it current, and returns the key.
TAVOROPROTO_EXPORT std::string_view takeKey(JsonReader &reader);

/// Fetches what is due and tells whether it is the comma behind a field or an element, and not what
/// closes the record or the vector.
TAVOROPROTO_EXPORT bool takeFieldSeparator(JsonReader &reader, Place at);
TAVOROPROTO_EXPORT bool takeElementSeparator(JsonReader &reader, Place at);

/// Goes past the current value, whatever it holds.
TAVOROPROTO_EXPORT void skipValue(JsonReader &reader);

} // namespace ajson
