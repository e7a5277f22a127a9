#pragma once

#include "layeritem.h"
#include "snaplines.h"

#include <QColor>
#include <QGraphicsObject>
#include <QPointer>

namespace Tavoro::Panel {

/// The frame of the selected layer with its handles, above everything else; while the layer is
/// dragged also its position and the lines to which it snaps.
class SelectionFrame : public QGraphicsObject {
    Q_OBJECT

public:
    SelectionFrame();

    /// Half the width of a handle, in pixels of the view.
    static constexpr double handleReach = 7;

    void setLayer(LayerItem *layer);
    LayerItem *layer() const { return m_layer; }
    void setColor(const QColor &color);
    /// False if the device does not accept changes: the frame has no handles.
    void setEditable(bool isEditable);
    /// Shows position and lines of a drag.
    void showDrag(const SnappedRect &snapped);
    void hideDrag();
    /// Moves to the layer, after the layer or its screen has moved.
    void follow();

    /// The handle at a position of the scene. \a scale is that of the view.
    Qt::Edges handleAt(const QPointF &scenePosition, double scale) const;

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    bool hasHandles() const;
    void paintHandles(QPainter &painter, const QRectF &rect) const;
    void paintLines(QPainter &painter) const;

    QPointer<LayerItem> m_layer;
    QRectF m_layerRect; ///< In the scene; kept, since the item may just be destroyed.
    QRectF m_screenRect; ///< Of the layer's screen, in the scene.
    QColor m_color;
    bool m_isEditable = true;
    bool m_isDragging = false;
    SnappedRect m_snapped;
};

} // namespace Tavoro::Panel
