#include "imagelist.h"

#include <QDragEnterEvent>
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

ImageList::ImageList(QWidget *parent) : FileList(parent)
{
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

} // namespace Tavoro::Panel
