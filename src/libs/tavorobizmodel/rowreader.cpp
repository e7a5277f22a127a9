#include "rowreader_p.h"

namespace Tavoro::BizModel::RowFormat {

namespace {

/// Limit of nesting, deeper than any record: a damaged row must not exhaust the stack.
constexpr int maxDepth = 32;

} // namespace

bool RowReader::fail()
{
    m_isSound = false;
    m_rest = {};
    return false;
}

bool RowReader::take(std::size_t size, std::string_view &bytes)
{
    if (size > m_rest.size())
        return fail();
    bytes = m_rest.substr(0, size);
    m_rest.remove_prefix(size);
    return true;
}

Tag RowReader::takeTag()
{
    std::string_view byte;
    return take(1, byte) ? static_cast<Tag>(byte[0]) : Tag::None;
}

bool RowReader::takeVarint(quint64 &number)
{
    number = 0;
    std::string_view byte;
    for (int shift = 0; shift < 64; shift += 7) {
        if (!take(1, byte))
            return false;
        const quint64 bits = static_cast<quint8>(byte[0]) & 0x7F;
        if (shift == 63 && bits > 1)
            break;
        number |= bits << shift;
        if ((byte[0] & 0x80) == 0)
            return true;
    }
    return fail();
}

bool RowReader::takeBytes(std::string_view &bytes)
{
    quint64 size = 0;
    if (takeTag() != Tag::Bytes)
        return fail();
    return takeVarint(size) && take(size, bytes);
}

bool RowReader::takeName(std::string_view &name)
{
    std::string_view length;
    if (!take(1, length) || length[0] == 0)
        return false;
    return take(static_cast<quint8>(length[0]), name);
}

bool RowReader::skipValue(int depth)
{
    if (depth > maxDepth)
        return fail();
    quint64 number = 0;
    std::string_view skipped;
    switch (takeTag()) {
    case Tag::True:
    case Tag::False:
        return true;
    case Tag::Number:
    case Tag::Negative:
        return takeVarint(number);
    case Tag::Bytes:
        return takeVarint(number) && take(number, skipped);
    case Tag::List:
        if (!takeVarint(number))
            return false;
        for (quint64 i = 0; i < number; ++i) {
            if (!skipValue(depth + 1))
                return false;
        }
        return true;
    case Tag::Record:
        while (takeName(skipped)) {
            if (!skipValue(depth + 1))
                return false;
        }
        return m_isSound;
    case Tag::None:
        break;
    }
    return fail();
}

} // namespace Tavoro::BizModel::RowFormat
