#pragma once

#include <cstddef>
#include <cstdint>

namespace ajson {

/// Kind of a token. The order matters: the kinds before \c symbol hold a value.
enum class JsonTokenKind : std::uint8_t {
    word = 0, ///< A quoted string or a bare word; the readers treat both alike.
    negativeInteger = 1, ///< A number that begins with a minus sign, without point or exponent.
    unsignedInteger = 2, ///< A number that begins with a digit, without point or exponent.
    floatNumber = 3, ///< A number with a point or an exponent.
    symbol = 4, ///< One of <tt>{ } [ ] : ,</tt>
    end = 5, ///< The end of the input.
};

/// A view of one token in the caller's text.
struct JsonToken {
    const char *text = nullptr; ///< First character; in a quoted string, the one after the quote.
    std::size_t length = 0; ///< In bytes, with escapes unchanged and without quotes.
    JsonTokenKind kind = JsonTokenKind::word;
    bool negative = false; ///< The number began with a minus sign, which \c value does not hold.
    union {
        std::uint64_t integer;
        double real; ///< For a \c floatNumber.
    } value = {0};

    bool isSymbol(char symbol) const noexcept
    {
        return kind == JsonTokenKind::symbol && *text == symbol;
    }
};

} // namespace ajson
