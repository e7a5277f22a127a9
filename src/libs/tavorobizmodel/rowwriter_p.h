#pragma once

#include "rowtag_p.h"

#include <QByteArray>
#include <QtGlobal>

#include <cstddef>
#include <string_view>

namespace Tavoro::BizModel::RowFormat {

/// Writes the parts of a row. The format is described in rowformat_p.h.
class RowWriter {
public:
    void putTag(Tag tag) { m_bytes.append(static_cast<char>(tag)); }
    void putNumber(Tag tag, quint64 number);
    void putBytes(const char *data, std::size_t size);
    /// \a name has 1 to 255 bytes.
    void putName(std::string_view name);
    void endRecord() { putTag(Tag::None); }

    const QByteArray &bytes() const { return m_bytes; }

private:
    void append(const char *data, std::size_t size);

    QByteArray m_bytes;
};

} // namespace Tavoro::BizModel::RowFormat
