#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
class QDropEvent;
class QGraphicsView;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class CanvasScene;
class LayerEditor;
class LayerItem;
class Selection;

/// Accepts sources that are dragged onto layers of the canvas: the layer on which one is dropped is
/// selected and shows it.
class SourceDrop : public QObject {
    Q_OBJECT

public:
    /// \a view shows \a scene; all must exist as long as this object.
    SourceDrop(QGraphicsView &view, CanvasScene &scene, Selection &selection, LayerEditor &editor);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(QDropEvent &event) const;
    void drop(QDropEvent &event);
    LayerItem *layerAt(const QDropEvent &event) const;

    const QGraphicsView &m_view;
    CanvasScene &m_scene;
    Selection &m_selection;
    LayerEditor &m_editor;
};

} // namespace Tavoro::Panel
