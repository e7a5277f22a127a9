#include "sourcedrop.h"

#include "canvasscene.h"
#include "layereditor.h"

#include <tavoropanel/sources/layersources.h>

#include <QDropEvent>
#include <QGraphicsView>
#include <QMimeData>

namespace Tavoro::Panel {

namespace {

QPoint placeOf(const QDropEvent &event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.pos();
#else
    return event.position().toPoint();
#endif
}

} // namespace

SourceDrop::SourceDrop(QGraphicsView &view, CanvasScene &scene, Selection &selection,
                       LayerEditor &editor)
    : QObject(&view), m_view(view), m_scene(scene), m_selection(selection), m_editor(editor)
{
    view.setAcceptDrops(true);
    view.viewport()->installEventFilter(this);
}

bool SourceDrop::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        follow(static_cast<QDropEvent &>(*event));
        return true;
    case QEvent::DragLeave:
        return true;
    case QEvent::Drop:
        drop(static_cast<QDropEvent &>(*event));
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

/// Shows whether a drop would have an effect.
void SourceDrop::follow(QDropEvent &event) const
{
    const bool isSource = sourceIn(*event.mimeData()).has_value();
    // What is refused when it enters gets no moves: it may reach a layer later.
    const bool isPossible = isSource && (event.type() == QEvent::DragEnter || layerAt(event));
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(isPossible);
}

void SourceDrop::drop(QDropEvent &event)
{
    const auto source = sourceIn(*event.mimeData());
    LayerItem *const layer = layerAt(event);
    event.setAccepted(source && layer);
    if (!source || !layer)
        return;
    m_selection.setLayer(layer->id());
    if (m_editor.canEdit(*layer))
        m_editor.setSource(*layer, *source);
}

LayerItem *SourceDrop::layerAt(const QDropEvent &event) const
{
    return m_scene.layerAt(m_view.mapToScene(placeOf(event)));
}

} // namespace Tavoro::Panel
