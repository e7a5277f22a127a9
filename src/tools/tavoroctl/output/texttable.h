#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// A table for a terminal. A column is as wide as its widest cell; two spaces separate columns.
class TextTable {
public:
    TextTable() = default;
    explicit TextTable(const QStringList &headings) { addRow(headings); }
    /// One column per word of \a headings.
    explicit TextTable(const QString &headings) : TextTable(headings.split(QLatin1Char(' '))) { }

    /// Escapes the control characters of the cells.
    void addRow(const QStringList &cells);
    QString text() const;

private:
    QList<QStringList> m_rows;
};

} // namespace Tavoro::Ctl
