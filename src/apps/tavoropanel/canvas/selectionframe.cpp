#include "selectionframe.h"

#include "canvastext.h"
#include "layergeometry.h"
#include "screenitem.h"

#include <QPainter>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

constexpr qreal topmost = 10000;

/// Below a layer, or at its lower edge if that is the end of the view.
QRectF placeOfText(const QRectF &layer, const QRectF &view)
{
    constexpr double height = 26;
    constexpr double width = 340;
    QRectF place(layer.left(), layer.bottom() + 10, width, height);
    place.moveRight(std::min(place.right(), view.right()));
    place.moveBottom(std::min(place.bottom(), view.bottom()));
    return place;
}

ScreenItem *screenOf(const LayerItem &layer)
{
    return static_cast<ScreenItem *>(layer.parentItem()->parentItem());
}

} // namespace

SelectionFrame::SelectionFrame()
{
    setZValue(topmost);
    setAcceptedMouseButtons(Qt::NoButton);
    setVisible(false);
}

void SelectionFrame::setLayer(LayerItem *layer)
{
    if (m_layer)
        m_layer->disconnect(this);
    m_layer = layer;
    hideDrag();
    setVisible(layer);
    if (layer) {
        connect(layer, &LayerItem::shownChanged, this, &SelectionFrame::follow);
        connect(layer, &QObject::destroyed, this, [this] { setVisible(false); });
    }
    follow();
}

void SelectionFrame::setColor(const QColor &color)
{
    m_color = color;
    update();
}

void SelectionFrame::setEditable(bool isEditable)
{
    m_isEditable = isEditable;
    update();
}

void SelectionFrame::showDrag(const SnappedRect &snapped)
{
    m_isDragging = true;
    m_snapped = snapped;
    update();
}

void SelectionFrame::hideDrag()
{
    m_isDragging = false;
    update();
}

void SelectionFrame::follow()
{
    prepareGeometryChange();
    if (m_layer) {
        const ScreenItem *const screen = screenOf(*m_layer);
        m_layerRect = m_layer->sceneBoundingRect();
        m_screenRect = screen->mapRectToScene(screen->screenRect());
    }
    update();
}

bool SelectionFrame::hasHandles() const
{
    return m_isEditable && m_layer && !m_layer->isLocked();
}

Qt::Edges SelectionFrame::handleAt(const QPointF &scenePosition, double scale) const
{
    if (!hasHandles())
        return {};
    // Of a small layer, half remains to move it.
    const double reach = handleReach / scale;
    return Panel::handleAt(
        m_layerRect, scenePosition,
        {std::min(reach, m_layerRect.width() / 4), std::min(reach, m_layerRect.height() / 4)});
}

QRectF SelectionFrame::boundingRect() const
{
    return m_layerRect | m_screenRect; // the lines of a drag cross the screen
}

void SelectionFrame::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                           QWidget * /*widget*/)
{
    if (!m_layer)
        return;
    if (m_isDragging)
        paintLines(*painter);
    const ViewPixels pixels(*painter);
    const QRectF rect = pixels.mapped(m_layerRect);
    painter->setBrush(Qt::NoBrush);
    // Dark on both sides, so that the frame is visible on every picture.
    painter->setPen(QPen(QColor(0, 0, 0, 170), 5));
    painter->drawRect(rect);
    painter->setPen(QPen(m_color, 3));
    painter->drawRect(rect);
    if (hasHandles())
        paintHandles(*painter, rect);
    if (m_isDragging) {
        const QRect window = m_layer->window();
        paintLabel(*painter, placeOfText(rect, painter->viewport()),
                   tr("%1, %2  ·  %3").arg(window.x()).arg(window.y()).arg(sizeText(window.size())),
                   QColor(0, 0, 0, 230), Qt::white);
    }
}

void SelectionFrame::paintHandles(QPainter &painter, const QRectF &rect) const
{
    constexpr double half = handleReach - 2;
    painter.setPen(QPen(QColor(0, 0, 0, 200), 1));
    painter.setBrush(Qt::white);
    const bool hasMiddles = std::min(rect.width(), rect.height()) > 8 * half;
    for (const Qt::Edges handle : layerHandles) {
        const QPointF centre = handlePosition(rect, handle);
        const bool isCorner =
            handle & (Qt::LeftEdge | Qt::RightEdge) && handle & (Qt::TopEdge | Qt::BottomEdge);
        if (isCorner || hasMiddles)
            painter.drawRect(QRectF(centre.x() - half, centre.y() - half, 2 * half, 2 * half));
    }
}

void SelectionFrame::paintLines(QPainter &painter) const
{
    const QRectF &area = m_screenRect;
    QPen pen(m_color, 2, Qt::DashLine);
    pen.setCosmetic(true);
    painter.setPen(pen);
    if (m_snapped.x) {
        const double x = area.left() + *m_snapped.x;
        painter.drawLine(QLineF(x, area.top(), x, area.bottom()));
    }
    if (m_snapped.y) {
        const double y = area.top() + *m_snapped.y;
        painter.drawLine(QLineF(area.left(), y, area.right(), y));
    }
}

} // namespace Tavoro::Panel
