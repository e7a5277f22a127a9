#pragma once

// Tests and copies of text, eight or sixteen bytes at a time.

#include <QtAlgorithms>

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && !defined(TAVORO_NO_SIMD)
#include <emmintrin.h>
#endif

namespace ajson {

constexpr bool isSpecial(char c) noexcept
{
    return c == '"' || c == '\\' || static_cast<unsigned char>(c) < ' ';
}

constexpr std::uint64_t eachByte(std::uint64_t byte) noexcept
{
    return byte * 0x0101010101010101U;
}

/// Not 0 if a byte of \a word is less than \a bound, which is at most 128.
constexpr std::uint64_t bytesBelow(std::uint64_t word, std::uint64_t bound) noexcept
{
    return (word - eachByte(bound)) & ~word & eachByte(0x80);
}

constexpr std::uint64_t bytesEqual(std::uint64_t word, char c) noexcept
{
    return bytesBelow(word ^ eachByte(static_cast<unsigned char>(c)), 1);
}

/// Not 0 if a byte of \a word is special.
constexpr std::uint64_t bytesSpecial(std::uint64_t word) noexcept
{
    return bytesBelow(word, ' ') | bytesEqual(word, '"') | bytesEqual(word, '\\');
}

/// Not 0 if a byte of \a word cannot stand in a string as it is.
constexpr std::uint64_t bytesNotPlain(std::uint64_t word) noexcept
{
    return bytesBelow(word, ' ') | bytesEqual(word, '"') | bytesEqual(word, '\\')
        | bytesEqual(word, 127) | (word & eachByte(0x80));
}

/// Returns the bytes at \a at as a word; they need not be aligned.
template <class Word>
Word loadWord(const char *at) noexcept
{
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
}

#if defined(__SSE2__) && !defined(TAVORO_NO_SIMD)

/// Sixteen bytes of a text.
class Block {
public:
    static constexpr std::size_t size = 16;

    explicit Block(const char *at) noexcept
        : m_bytes(_mm_loadu_si128(reinterpret_cast<const __m128i *>(at)))
    { }
    void store(char *at) const noexcept
    {
        _mm_storeu_si128(reinterpret_cast<__m128i *>(at), m_bytes);
    }

    /// Not 0 if a byte cannot stand in a string as it is.
    std::uint64_t notPlain() const noexcept
    {
        const __m128i belowBlank = _mm_cmplt_epi8(m_bytes, _mm_set1_epi8(' ')); // 128 to 255 too
        return maskOf(_mm_or_si128(_mm_or_si128(belowBlank, equal('"')),
                                   _mm_or_si128(equal('\\'), equal(127))));
    }

    /// The index of the first quote, backslash or control character; 16 if there is none.
    unsigned firstSpecial() const noexcept
    {
        const __m128i lastControl = _mm_set1_epi8(' ' - 1);
        const __m128i control = _mm_cmpeq_epi8(_mm_max_epu8(m_bytes, lastControl), lastControl);
        const unsigned mask = maskOf(_mm_or_si128(control, _mm_or_si128(equal('"'), equal('\\'))));
        return qCountTrailingZeroBits(mask | 1U << size);
    }

private:
    __m128i equal(char c) const noexcept { return _mm_cmpeq_epi8(m_bytes, _mm_set1_epi8(c)); }
    static unsigned maskOf(__m128i bytes) noexcept
    {
        return static_cast<unsigned>(_mm_movemask_epi8(bytes));
    }

    __m128i m_bytes;
};

#else

class Block {
public:
    static constexpr std::size_t size = 16;

    explicit Block(const char *at) noexcept { std::memcpy(m_bytes, at, size); }
    void store(char *at) const noexcept { std::memcpy(at, m_bytes, size); }

    std::uint64_t notPlain() const noexcept
    {
        return bytesNotPlain(loadWord<std::uint64_t>(m_bytes))
            | bytesNotPlain(loadWord<std::uint64_t>(m_bytes + 8));
    }

    unsigned firstSpecial() const noexcept
    {
        unsigned i = bytesSpecial(loadWord<std::uint64_t>(m_bytes)) ? 0 : 8;
        while (i < size && !isSpecial(m_bytes[i]))
            ++i;
        return i;
    }

private:
    char m_bytes[size];
};

#endif

/// The first quote, backslash or control character, or \a end.
inline const char *findSpecial(const char *at, const char *end) noexcept
{
    for (; static_cast<std::size_t>(end - at) >= Block::size; at += Block::size) {
        if (const unsigned special = Block(at).firstSpecial(); special < Block::size)
            return at + special;
    }
    while (at != end && !isSpecial(*at))
        ++at;
    return at;
}

} // namespace ajson
