#include "namedelegate.h"

#include <QLineEdit>

namespace Tavoro::Panel {

void NameDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const auto *const line = qobject_cast<QLineEdit *>(editor);
    if (!line || !line->isModified())
        QStyledItemDelegate::setEditorData(editor, index);
}

} // namespace Tavoro::Panel
