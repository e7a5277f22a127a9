#pragma once

#include <tavorocontrol/proto/export.h>

#include <cstddef>

namespace ajson {

/// The buffer that one encode writes into.
///
/// A write says how many bytes it may need, gets the place for them, and puts its bytes there
/// without further checks. When they do not fit behind those already written, the buffer is
/// replaced by one that holds both, rounded up to whole steps. A write that finds the buffer full
/// asks for as much again as was written so far, so that a long text is not copied for each step.
class TAVOROPROTO_EXPORT JsonWriter {
public:
    static constexpr std::size_t step = 1024;

    JsonWriter() noexcept;
    ~JsonWriter();
    JsonWriter(const JsonWriter &) = delete;
    JsonWriter &operator=(const JsonWriter &) = delete;

    /// Begins a write of up to \a size bytes behind those that end at \a written. Returns its
    /// place, which is \a written unless the buffer was replaced.
    char *begin(char *written, std::size_t size)
    {
        return size <= static_cast<std::size_t>(limit - written) ? written : grow(written, size);
    }

    std::size_t capacity() const noexcept { return static_cast<std::size_t>(limit - start); }

    char *start;
    char *cursor; ///< Behind the last byte that is known to be written.
    char *limit;

private:
    char *grow(char *written, std::size_t size);

    char m_first[step]; ///< Enough for most bodies.
};

} // namespace ajson
