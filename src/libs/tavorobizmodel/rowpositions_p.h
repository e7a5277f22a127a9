#pragma once

#include <QHash>
#include <QtGlobal>

namespace Tavoro::BizModel {

/// Assigns positions to rows within their kind. A row keeps its position if that is after the
/// previous row's, so that adding or removing a row moves few others.
class RowPositions {
public:
    /// Gap for a device that has no rows yet: leaves room for later rows.
    static constexpr qlonglong wideGap = 1024;

    /// \a gap is the distance from one new row to the next.
    explicit RowPositions(qlonglong gap) : m_gap(gap) { }

    /// Returns the position of the next row of \a kind. \a stored is its current position; 0 for a
    /// new row.
    qlonglong next(int kind, qlonglong stored)
    {
        qlonglong &last = m_last[kind];
        last = stored > last ? stored : last + m_gap;
        return last;
    }

private:
    const qlonglong m_gap;
    QHash<int, qlonglong> m_last;
};

} // namespace Tavoro::BizModel
