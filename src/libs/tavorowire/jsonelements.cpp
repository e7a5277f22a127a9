// Classifies 64 bytes at a time: one bit for each byte, in one word for each kind of byte.

#include <tavorowire/jsonelements.h>

#include <QtAlgorithms>

#include <algorithm>

#if defined(__SSE2__) && !defined(TAVORO_NO_SIMD)
#include <emmintrin.h>
#define TAVORO_ELEMENTS_SSE2
#endif

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr unsigned blockSize = 64;

/// Where these bytes are in a block. Bit 0 is the first byte.
struct Places {
    quint64 quotes; ///< <tt>"</tt>
    quint64 elements; ///< <tt>,</tt> <tt>[</tt> <tt>{</tt>
    quint64 separators; ///< The same and <tt>:</tt>
    quint64 slashes; ///< In both directions.
};

#ifdef TAVORO_ELEMENTS_SSE2

__m128i equal(__m128i bytes, char c)
{
    return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c));
}

/// One bit for each byte of four registers.
template <class Test>
quint64 bitsOf(const __m128i *parts, Test test)
{
    const auto bits = [&](int part) {
        return quint64(quint32(_mm_movemask_epi8(test(parts[part]))));
    };
    return bits(0) | bits(1) << 16 | bits(2) << 32 | bits(3) << 48;
}

Places placesIn(const char *block)
{
    const auto *const at = reinterpret_cast<const __m128i *>(block);
    const __m128i parts[] = {_mm_loadu_si128(at), _mm_loadu_si128(at + 1), _mm_loadu_si128(at + 2),
                             _mm_loadu_si128(at + 3)};
    const auto isElement = [](__m128i bytes) {
        const __m128i braces = _mm_or_si128(bytes, _mm_set1_epi8('[' ^ '{')); // from brackets too
        return _mm_or_si128(equal(braces, '{'), equal(bytes, ','));
    };
    Places places;
    places.quotes = bitsOf(parts, [](__m128i bytes) { return equal(bytes, '"'); });
    places.elements = bitsOf(parts, isElement);
    places.separators =
        places.elements | bitsOf(parts, [](__m128i bytes) { return equal(bytes, ':'); });
    places.slashes = bitsOf(
        parts, [](__m128i bytes) { return _mm_or_si128(equal(bytes, '/'), equal(bytes, '\\')); });
    return places;
}

#else

Places placesIn(const char *block)
{
    Places places{};
    for (unsigned at = 0; at < blockSize; ++at) {
        const char c = block[at];
        const bool isElement = c == ',' || c == '[' || c == '{';
        places.quotes |= quint64(c == '"') << at;
        places.elements |= quint64(isElement) << at;
        places.separators |= quint64(isElement || c == ':') << at;
        places.slashes |= quint64(c == '/' || c == '\\') << at;
    }
    return places;
}

#endif

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool mayPrecedeString(char c)
{
    return isBlank(c) || c == ',' || c == ':' || c == '[' || c == '{';
}

quint64 blanksIn(const char *block)
{
    quint64 blanks = 0;
    for (unsigned at = 0; at < blockSize; ++at)
        blanks |= quint64(isBlank(block[at])) << at;
    return blanks;
}

/// All places before the first one of \a places; all places if there is none.
quint64 beforeFirst(quint64 places)
{
    return (places & (~places + 1)) - 1;
}

/// Each bit of the result is the exclusive or of all bits of \a word up to its place: 1 from a
/// quote until before the next one.
quint64 betweenPairs(quint64 word)
{
    for (unsigned shift = 1; shift < blockSize; shift *= 2)
        word ^= word << shift;
    return word;
}

/// The places of the bytes that a backslash protects.
quint64 escapedIn(const char *block, quint64 slashes, bool isFirstEscaped)
{
    quint64 escaped = isFirstEscaped ? 1 : 0;
    for (slashes &= ~escaped; slashes != 0; slashes &= slashes - 1) {
        const quint64 next = (beforeFirst(slashes) + 1) << 1;
        if (block[qCountTrailingZeroBits(slashes)] != '\\')
            continue;
        escaped |= next;
        slashes &= ~next;
    }
    return escaped;
}

} // namespace

void JsonElements::add(std::string_view piece)
{
    for (; piece.size() >= blockSize; piece.remove_prefix(blockSize))
        addBlock(piece.data(), blockSize);
    if (piece.empty())
        return;
    char block[blockSize] = {};
    std::copy(piece.begin(), piece.end(), block);
    addBlock(block, unsigned(piece.size()));
}

/// Adds \a length bytes of a block, whose further bytes are 0.
void JsonElements::addBlock(const char *block, unsigned length)
{
    const Places places = placesIn(block);
    const quint64 escaped = escapedIn(block, places.slashes, m_isEscaped);
    const quint64 quotes = places.quotes & ~escaped;
    const quint64 inStrings = betweenPairs(quotes) ^ (m_isInString ? ~quint64(0) : 0);

    quint64 unusual = quotes & inStrings & ~(places.separators << 1 | quint64(m_mayBegin));
    if (unusual != 0)
        unusual &= ~(blanksIn(block) << 1);
    unusual |= places.slashes & ~inStrings;
    const quint64 skipped = m_countsAll ? 0 : inStrings & beforeFirst(unusual);
    m_count += qPopulationCount(places.elements & ~skipped);
    m_countsAll = m_countsAll || unusual != 0;

    const char lastByte = block[length - 1];
    const quint64 last = quint64(1) << (length - 1);
    m_isInString = (inStrings & last) != 0;
    m_isEscaped = lastByte == '\\' && (escaped & last) == 0;
    m_mayBegin = mayPrecedeString(lastByte);
}

} // namespace Tavoro::SSProxy::Wire
