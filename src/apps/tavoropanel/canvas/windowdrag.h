#pragma once

#include "snaplines.h"

#include <QPointF>
#include <QRect>
#include <Qt>

namespace Tavoro::Panel {

/// How a drag follows the pointer.
struct DragManner {
    int snapDistance = 0; ///< In pixels of the screen; 0 suspends snapping.
    /// Keeps the proportions while resizing, or one of the two directions while moving.
    bool isConstrained = false;
};

/// The arithmetic of one drag of a layer, from the press of the mouse button to its release: where
/// the window of the layer is when the pointer is at a position. In pixels of the screen.
class WindowDrag {
public:
    /// \a handle is the handle that was pressed; empty if the layer itself was.
    WindowDrag(const QRect &start, Qt::Edges handle, const QPointF &pressed, SnapLines lines);

    QRect start() const { return m_start; }
    bool isMove() const { return m_handle == Qt::Edges(); }
    SnappedRect at(const QPointF &pointer, const DragManner &manner) const;

private:
    SnappedRect moved(QPoint way, const DragManner &manner) const;
    SnappedRect resizedBy(const QPoint &way, const DragManner &manner) const;

    const QRect m_start;
    const Qt::Edges m_handle;
    const QPointF m_pressed;
    const SnapLines m_lines;
};

} // namespace Tavoro::Panel
