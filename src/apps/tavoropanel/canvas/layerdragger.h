#pragma once

#include "windowdrag.h"

#include <QObject>
#include <QPointF>
#include <QPointer>

#include <optional>

namespace Tavoro::Panel {

class CanvasScene;
class LayerEditor;
class LayerItem;
class Selection;

/// Selects, moves and resizes layers with the mouse. Positions are those of the scene.
///
/// Ctrl suspends snapping; Shift keeps the proportions, or one direction of a move.
class LayerDragger : public QObject {
    Q_OBJECT

public:
    LayerDragger(CanvasScene &scene, Selection &selection, LayerEditor &editor, QObject *parent);

    /// The pointer and the view that it is in.
    struct Pointer {
        QPointF position;
        double scale = 1; ///< Pixels of the view for each of the scene.
        Qt::KeyboardModifiers modifiers;
    };

    /// Starts a drag or selects what is there. Returns false if there is no screen.
    bool press(const Pointer &pointer);
    void move(const Pointer &pointer);
    void release(const Pointer &pointer);
    /// Ends the drag, and moves the layer back to where it began.
    void cancel();
    /// True while the mouse button is down on a layer.
    bool isActive() const { return m_drag.has_value(); }
    /// The cursor for a position.
    Qt::CursorShape cursorAt(const Pointer &pointer) const;

private:
    void start(LayerItem &layer, Qt::Edges handle, const Pointer &pointer);
    void selectScreen(const QPointF &position, Qt::KeyboardModifiers modifiers);
    void apply(const Pointer &pointer);
    void end();
    SnapLines linesFor(const LayerItem &layer) const;

    CanvasScene &m_scene;
    Selection &m_selection;
    LayerEditor &m_editor;
    QPointer<LayerItem> m_layer;
    QPointF m_pressed;
    bool m_hasMoved = false;
    std::optional<WindowDrag> m_drag;
};

} // namespace Tavoro::Panel
