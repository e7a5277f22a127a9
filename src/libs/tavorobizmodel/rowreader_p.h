#pragma once

#include "rowtag_p.h"

#include <QByteArray>
#include <QtGlobal>

#include <cstddef>
#include <string_view>

namespace Tavoro::BizModel::RowFormat {

/// Reads the parts of a row, which may be damaged. The format is described in rowformat_p.h.
///
/// The views refer to the row, which must outlive them. After a failure every call fails.
class RowReader {
public:
    explicit RowReader(const QByteArray &row)
        : m_rest(row.constData(), static_cast<std::size_t>(row.size()))
    { }

    /// Takes the next byte; returns Tag::None at the end of the row.
    Tag takeTag();
    bool takeVarint(quint64 &number);
    /// Takes a whole value of the kind Bytes.
    bool takeBytes(std::string_view &bytes);
    /// Takes the name of the next field. Returns false at the end of the record, and after a
    /// failure.
    bool takeName(std::string_view &name);
    /// Skips a whole value of any kind.
    bool skipValue() { return skipValue(0); }

    bool isSound() const { return m_isSound; }
    bool atEnd() const { return m_isSound && m_rest.empty(); }

private:
    bool skipValue(int depth);
    bool take(std::size_t size, std::string_view &bytes);
    bool fail();

    std::string_view m_rest;
    bool m_isSound = true;
};

} // namespace Tavoro::BizModel::RowFormat
