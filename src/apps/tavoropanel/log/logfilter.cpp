#include "logfilter.h"

#include <tavoropanel/messages/messages.h>
#include <tavoropanel/theme/icon.h>

namespace Tavoro::Panel {

namespace {

QIcon iconOf(Severity severity)
{
    switch (severity) {
    case Severity::Detail:
        return {};
    case Severity::Information:
        return icon("dialog-information");
    case Severity::Warning:
        return icon("dialog-warning");
    case Severity::Error:
        return icon("dialog-error");
    }
    return {};
}

} // namespace

void LogFilter::setLeast(Severity severity)
{
    m_least = severity;
    invalidateFilter();
}

QVariant LogFilter::data(const QModelIndex &index, int role) const
{
    if (role == Qt::DecorationRole && index.column() == Messages::SeverityColumn)
        return iconOf(static_cast<Severity>(index.data(Messages::severityRole).toInt()));
    if (role == Qt::ToolTipRole)
        return QSortFilterProxyModel::data(index, Qt::DisplayRole);
    return QSortFilterProxyModel::data(index, role);
}

bool LogFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    return index.data(Messages::severityRole).toInt() >= static_cast<int>(m_least);
}

} // namespace Tavoro::Panel
