#pragma once

// The exact path: reads records and values token by token.

#include <tavorocontrol/proto/export.h>
#include <tavorocontrol/proto/json/jsonreader.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ajson {

/// Where reading continues. Not null: the next token is expected at this place, after any blanks.
/// Null: the next token has been fetched already and is the reader's current one.
using Place = const char *;

/// Makes the token at \a at current; does nothing if \a at is null.
inline void fetch(JsonReader &reader, Place at)
{
    if (at)
        reader.readTokenAt(at);
}

/// \name Value of the current token
/// The cursor does not move.
/// @{

/// A field stores the low bits of the integer, without a range check.
TAVOROPROTO_EXPORT std::uint64_t unsignedValue(const JsonReader &reader);
TAVOROPROTO_EXPORT std::uint64_t signedValue(const JsonReader &reader);
TAVOROPROTO_EXPORT bool boolValue(const JsonReader &reader);

/// If an escape is invalid, \a value holds the text before it.
TAVOROPROTO_EXPORT void stringValue(const JsonReader &reader, std::string &value);

/// @}

/// Fetches the next token and throws \a words unless it is \a symbol.
TAVOROPROTO_EXPORT void requireSymbol(JsonReader &reader, Place at, char symbol, const char *words);

/// Takes the current token as a key, makes the colon after it current, and returns the key.
TAVOROPROTO_EXPORT std::string_view takeKey(JsonReader &reader);

/// Fetches the next token. Returns true if it is the comma after a field or an element, false if it
/// closes the record or the vector; throws for any other token.
TAVOROPROTO_EXPORT bool takeFieldSeparator(JsonReader &reader, Place at);
TAVOROPROTO_EXPORT bool takeElementSeparator(JsonReader &reader, Place at);

/// Skips the current value with everything inside it.
TAVOROPROTO_EXPORT void skipValue(JsonReader &reader);

} // namespace ajson
