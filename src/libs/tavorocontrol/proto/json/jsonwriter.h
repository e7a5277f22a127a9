#pragma once

#include <tavorocontrol/proto/export.h>

#include <cstddef>

namespace ajson {

/// The buffer into which one value is encoded.
///
/// A write reserves the space that it may need, and then writes without further checks. If the
/// space does not suffice, a larger buffer replaces the current one. Its size is rounded up to
/// whole steps and is at least twice the former size, so that the bytes that are copied stay
/// proportional to the text.
class TAVOROPROTO_EXPORT JsonWriter {
public:
    static constexpr std::size_t step = 1024;

    JsonWriter() noexcept;
    ~JsonWriter();
    JsonWriter(const JsonWriter &) = delete;
    JsonWriter &operator=(const JsonWriter &) = delete;

    /// Begins a write of up to \a size bytes after those that end at \a written. Returns the place
    /// to write to: \a written, unless the buffer was replaced.
    char *begin(char *written, std::size_t size)
    {
        return size <= static_cast<std::size_t>(limit - written) ? written : grow(written, size);
    }

    std::size_t capacity() const noexcept { return static_cast<std::size_t>(limit - start); }

    char *start;
    char *cursor; ///< Place after the last written byte, as of the last update.
    char *limit;

private:
    char *grow(char *written, std::size_t size);

    char m_first[step]; ///< Enough for most bodies.
};

} // namespace ajson
