#include "filelist.h"

#include "namedelegate.h"

#include <QKeyEvent>

namespace Tavoro::Panel {

FileList::FileList(QWidget *parent) : QListView(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setItemDelegate(new NameDelegate(this));
}

void FileList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && currentIndex().isValid())
        Q_EMIT deleteRequested(currentIndex());
    else
        QListView::keyPressEvent(event);
}

} // namespace Tavoro::Panel
