#pragma once

#include <QtGlobal>

#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// Counts the elements of a JSON text that arrives in pieces: the commas and the opening brackets,
/// <tt>,</tt> <tt>[</tt> and <tt>{</tt>, outside strings. What a decoder allocates for a text is
/// proportional to this number, and not to the length of the text.
///
/// The count is exact for JSON. Of other texts that a decoder may accept, with bare words that
/// contain quotes, or with comments, it is never too low: from the first such place on it also
/// counts the commas and brackets within strings.
class JsonElements {
public:
    /// Counts the elements of the next piece.
    void add(std::string_view piece);

    quint64 count() const { return m_count; }

private:
    void addBlock(const char *block, unsigned length);

    quint64 m_count = 0;
    bool m_isInString = false;
    bool m_isEscaped = false; ///< The last byte was a backslash that protects the next one.
    bool m_mayBegin = true; ///< A quote may begin a string: after a blank or a symbol.
    bool m_countsAll = false; ///< Where strings begin and end is no longer known.
};

} // namespace Tavoro::SSProxy::Wire
