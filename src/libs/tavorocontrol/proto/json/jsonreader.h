#pragma once

#include <tavorocontrol/proto/export.h>
#include <tavorocontrol/proto/json/jsontoken.h>

#include <cstddef>
#include <cstdint>
#include <limits>

namespace ajson {

/// Splits a text into tokens.
///
/// The state consists of the cursor and the current token. Line and column are computed only on
/// request, by reading the text again, so that they cost nothing without an error.
class TAVOROPROTO_EXPORT JsonReader {
public:
    /// Pass this length if only the terminating NUL ends the input.
    static constexpr std::size_t untilNul = std::numeric_limits<std::size_t>::max();

    /// Places the cursor before the first token of \a text, which must outlive the reader and end
    /// with a NUL. A smaller \a length ends the input before that NUL; a null \a text is empty.
    explicit JsonReader(const char *text, std::size_t length = untilNul) noexcept;

    /// Makes the next token current.
    ///
    /// Kept: a block comment that runs to the end of the input leaves the previous token current.
    void next();

    /// Makes the token at \a place current. The previous token, if there is one, must end exactly
    /// there; this reader need not have read it.
    void readTokenAt(const char *place);

    /// Throws an exception with \a words and with the line and column of the cursor.
    [[noreturn]] void fail(const char *words) const;

    /// Lines and columns both count from 0.
    std::uint64_t line() const noexcept;
    std::uint64_t column() const noexcept;

    /// Offset of the cursor, which is after the current token.
    std::size_t position() const noexcept { return static_cast<std::size_t>(m_cursor - m_text); }
    std::size_t length() const noexcept { return static_cast<std::size_t>(m_end - m_text); }
    /// The cursor and the end of the input, as places in the text.
    const char *place() const noexcept { return m_cursor; }
    const char *end() const noexcept { return m_end; }
    bool atEnd() const noexcept { return current() == '\0'; }

    JsonToken token;

private:
    char current() const noexcept { return m_cursor == m_end ? '\0' : *m_cursor; }
    void advance() noexcept
    {
        if (!atEnd())
            ++m_cursor;
    }

    void skipBlanks() noexcept;
    bool skipComment();
    void readSymbol() noexcept;
    void scanQuotedString();
    void scanBareWord();
    void scanNumber(JsonTokenKind kind);
    bool scanFraction();
    bool scanExponent();
    void becomeFloat() noexcept;
    void scale(double factor) noexcept;

    const char *const m_text;
    const char *m_cursor;
    const char *m_end;
    double m_digitWeight = 0.1; ///< Of the next digit after the point.
    std::int32_t m_exponent = 0; ///< 0 between numbers.
};

} // namespace ajson
