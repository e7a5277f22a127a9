#include "valuereader.h"

#include <cstdlib>
#include <limits>

namespace ajson {

namespace {

bool spellsTrue(const JsonToken &token)
{
    constexpr char letters[] = "true";
    if (token.length != 4)
        return false;
    for (std::size_t i = 0; i < 4; ++i) {
        if ((token.text[i] | 0x20) != letters[i])
            return false;
    }
    return true;
}

// Cuts the fraction off; a number outside the range becomes the nearest one inside.
template <class Integer>
Integer truncated(double number)
{
    using Limits = std::numeric_limits<Integer>;
    constexpr double beyond = static_cast<double>(Integer{1} << (Limits::digits - 1)) * 2.0;
    if (number >= beyond)
        return Limits::max();
    if (number < static_cast<double>(Limits::min()))
        return Limits::min();
    return static_cast<Integer>(number);
}

std::uint64_t withSign(std::uint64_t magnitude, bool negative)
{
    return negative ? 0 - magnitude : magnitude;
}

} // namespace

std::uint64_t unsignedValue(const JsonReader &reader)
{
    const JsonToken &token = reader.token;
    switch (token.kind) {
    case JsonTokenKind::word:
        return spellsTrue(token) ? 1 : std::strtoull(token.text, nullptr, 10);
    case JsonTokenKind::negativeInteger:
        if (token.negative)
            reader.fail("assign a negative signed integral to unsigned integral number.");
        return token.value.integer;
    case JsonTokenKind::unsignedInteger:
        return token.value.integer;
    case JsonTokenKind::floatNumber:
        if (token.negative)
            reader.fail("assign a negative float point to unsigned integral number.");
        return truncated<std::uint64_t>(token.value.real);
    case JsonTokenKind::symbol:
    case JsonTokenKind::end:
        break;
    }
    reader.fail("not a valid unsigned integral like number.");
}

std::uint64_t signedValue(const JsonReader &reader)
{
    const JsonToken &token = reader.token;
    switch (token.kind) {
    case JsonTokenKind::word:
        return spellsTrue(token)
            ? 1
            : static_cast<std::uint64_t>(std::strtoll(token.text, nullptr, 10));
    case JsonTokenKind::negativeInteger:
    case JsonTokenKind::unsignedInteger:
        return withSign(token.value.integer, token.negative);
    case JsonTokenKind::floatNumber:
        return withSign(static_cast<std::uint64_t>(truncated<std::int64_t>(token.value.real)),
                        token.negative);
    case JsonTokenKind::symbol:
    case JsonTokenKind::end:
        break;
    }
    reader.fail("not a valid signed integral like number.");
}

bool boolValue(const JsonReader &reader)
{
    const JsonToken &token = reader.token;
    switch (token.kind) {
    case JsonTokenKind::word:
        return spellsTrue(token);
    case JsonTokenKind::negativeInteger:
    case JsonTokenKind::unsignedInteger:
        return token.value.integer != 0;
    case JsonTokenKind::floatNumber:
        return token.value.real > 0.0 || token.value.real < 0.0;
    case JsonTokenKind::symbol:
    case JsonTokenKind::end:
        break;
    }
    reader.fail("not a valid bool.");
}

void requireSymbol(JsonReader &reader, Place at, char symbol, const char *words)
{
    fetch(reader, at);
    if (!reader.token.isSymbol(symbol))
        reader.fail(words);
}

std::string_view takeKey(JsonReader &reader)
{
    if (reader.token.kind != JsonTokenKind::word)
        reader.fail("object key must be string");
    const std::string_view key(reader.token.text, reader.token.length);
    requireSymbol(reader, reader.place(), ':', "invalid json document!");
    return key;
}

bool takeFieldSeparator(JsonReader &reader, Place at)
{
    fetch(reader, at);
    if (reader.token.isSymbol('}'))
        return false;
    requireSymbol(reader, nullptr, ',', "invalid json document!");
    return true;
}

bool takeElementSeparator(JsonReader &reader, Place at)
{
    fetch(reader, at);
    if (reader.token.isSymbol(']'))
        return false;
    requireSymbol(reader, nullptr, ',', "no valid array!");
    return true;
}

} // namespace ajson
