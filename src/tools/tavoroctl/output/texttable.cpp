#include "texttable.h"

#include "printable.h"

#include <programhelp/columns.h>

#include <QVector>

#include <algorithm>

namespace Tavoro::Ctl {

void TextTable::addRow(const QStringList &cells)
{
    QStringList row;
    for (const QString &cell : cells)
        row += printable(cell);
    m_rows.append(row);
}

QString TextTable::text() const
{
    if (m_rows.isEmpty())
        return {};
    QVector<int> widths(m_rows.at(0).size(), 0);
    for (const QStringList &row : m_rows) {
        for (int i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], Help::columnsOf(row.at(i)));
    }
    QString text;
    for (const QStringList &row : m_rows) {
        QString line;
        for (int i = 0; i < row.size(); ++i)
            line += Help::padded(row.at(i), widths[i] + 2);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        text += line + QLatin1Char('\n');
    }
    return text;
}

} // namespace Tavoro::Ctl
