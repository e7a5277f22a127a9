#pragma once

#include <QStyledItemDelegate>

namespace Tavoro::Panel {

/// Edits the name of an item. A name that the user has begun to type stays when the item changes,
/// for example when its picture arrives.
class NameDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
};

} // namespace Tavoro::Panel
