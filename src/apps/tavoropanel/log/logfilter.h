#pragma once

#include <tavoropanel/messages/message.h>

#include <QIcon>
#include <QSortFilterProxyModel>

namespace Tavoro::Panel {

/// The messages of a severity and above, with a symbol for each severity.
class LogFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setLeast(Severity severity);
    QVariant data(const QModelIndex &index, int role) const override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    Severity m_least = Severity::Information;
};

} // namespace Tavoro::Panel
