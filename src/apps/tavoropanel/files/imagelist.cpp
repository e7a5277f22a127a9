#include "imagelist.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>

namespace Tavoro::Panel {

namespace {

QStringList localFiles(const QDropEvent &event)
{
    QStringList paths;
    const auto urls = event.mimeData()->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}

} // namespace

ImageList::ImageList(QWidget *parent) : QListView(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDropIndicatorShown(false);
    setSpacing(2);
}

void ImageList::dragEnterEvent(QDragEnterEvent *event)
{
    // What leaves the list and comes back is on the device already.
    if (event->source() != this && !localFiles(*event).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void ImageList::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->source() != this && !localFiles(*event).isEmpty())
        event->accept();
    else
        event->ignore();
}

void ImageList::dropEvent(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT filesDropped(localFiles(*event));
}

void ImageList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && currentIndex().isValid())
        Q_EMIT deleteRequested(currentIndex());
    else
        QListView::keyPressEvent(event);
}

} // namespace Tavoro::Panel
