#include "jsonwriter.h"

namespace ajson {

JsonWriter::JsonWriter(std::string &text) noexcept
    : m_text(text), m_start(m_first), m_limit(m_first + bufferSize)
{ }

void JsonWriter::finish(const char *written)
{
    const auto size = static_cast<std::size_t>(written - m_start);
    if (m_isFlushed)
        m_text.append(m_start, size);
    else
        m_text.assign(m_start, size);
    m_isFlushed = true;
}

char *JsonWriter::flush(const char *written, std::size_t size)
{
    finish(written);
    if (size > static_cast<std::size_t>(m_limit - m_start)) {
        m_large.reset(new char[size + overshoot]);
        m_start = m_large.get();
        m_limit = m_start + size;
    }
    return m_start;
}

} // namespace ajson
