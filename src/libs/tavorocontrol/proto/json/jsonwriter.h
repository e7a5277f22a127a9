#pragma once

#include <tavorocontrol/proto/export.h>

#include <cstddef>
#include <memory>
#include <string>

namespace ajson {

/// Collects the JSON of one value in a buffer, and appends the buffer to a string whenever it is
/// full.
///
/// A write reserves the space that it may need and then puts its text without further checks. Every
/// place after a write is passed on as a pointer, so that it stays in a register.
class TAVOROPROTO_EXPORT JsonWriter {
public:
    /// Enough for most bodies, which are then copied once, into a string of exactly their size.
    static constexpr std::size_t bufferSize = 8192;

    /// Text is put in whole blocks: up to this many bytes after it may be overwritten.
    static constexpr std::size_t overshoot = 16;

    /// The writer replaces the contents of \a text, which must not be part of the value.
    explicit JsonWriter(std::string &text) noexcept;
    JsonWriter(const JsonWriter &) = delete;
    JsonWriter &operator=(const JsonWriter &) = delete;

    /// The place of the first write.
    char *start() noexcept { return m_start; }

    /// Makes space for \a size bytes after those that end at \a written. Returns the place to write
    /// to: \a written, unless the buffer was appended to the string.
    char *reserve(char *written, std::size_t size)
    {
        return size <= space(written) ? written : flush(written, size);
    }

    /// The space after the bytes that end at \a written.
    std::size_t space(const char *written) const noexcept
    {
        return static_cast<std::size_t>(m_limit - written);
    }

    /// Completes the string with the bytes that end at \a written.
    void finish(const char *written);

private:
    char *flush(const char *written, std::size_t size);

    std::string &m_text;
    char *m_start;
    char *m_limit;
    bool m_isFlushed = false; ///< The string holds the bytes before those in the buffer.
    std::unique_ptr<char[]> m_large; ///< The buffer, if a write needs more than \c m_first.
    char m_first[bufferSize + overshoot];
};

} // namespace ajson
