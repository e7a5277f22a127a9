#include "jsonwriter.h"

#include <algorithm>
#include <cstring>

namespace ajson {

JsonWriter::JsonWriter() noexcept : start(m_first), cursor(m_first), limit(m_first + step) { }

JsonWriter::~JsonWriter()
{
    if (start != m_first)
        delete[] start;
}

char *JsonWriter::grow(char *written, std::size_t size)
{
    const auto used = static_cast<std::size_t>(written - start);
    const std::size_t needed = std::max(used + size, 2 * capacity());
    const std::size_t grown = (needed + step - 1) / step * step;
    char *const buffer = new char[grown];
    std::memcpy(buffer, start, used);
    if (start != m_first)
        delete[] start;
    start = buffer;
    cursor = buffer + used;
    limit = buffer + grown;
    return cursor;
}

} // namespace ajson
