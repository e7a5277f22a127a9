#include "rowwriter_p.h"

namespace Tavoro::BizModel::RowFormat {

void RowWriter::putNumber(Tag tag, quint64 number)
{
    putTag(tag);
    for (; number > 0x7F; number >>= 7)
        m_bytes.append(static_cast<char>((number & 0x7F) | 0x80));
    m_bytes.append(static_cast<char>(number));
}

void RowWriter::putBytes(const char *data, std::size_t size)
{
    putNumber(Tag::Bytes, size);
    append(data, size);
}

void RowWriter::putName(std::string_view name)
{
    Q_ASSERT_X(!name.empty() && name.size() <= 0xFF, "RowWriter::putName", "1 to 255 bytes");
    m_bytes.append(static_cast<char>(name.size()));
    append(name.data(), name.size());
}

void RowWriter::append(const char *data, std::size_t size)
{
    m_bytes.append(data, static_cast<int>(size));
}

} // namespace Tavoro::BizModel::RowFormat
