#include "layeritem.h"

#include "canvastext.h"
#include "canvastheme.h"

#include <QPainter>

#include <utility>

namespace Tavoro::Panel {

LayerItem::LayerItem(QGraphicsItem *parent) : QGraphicsObject(parent) { }

void LayerItem::setFace(LayerFace face)
{
    m_face = std::move(face);
    m_window.setActual(m_face.window);
    m_opacity.setActual(m_face.opacity);
    show();
}

LayerFace LayerItem::shownFace() const
{
    LayerFace face = m_face;
    face.window = m_window.shown();
    face.opacity = m_opacity.shown();
    return face;
}

void LayerItem::show()
{
    const QRect window = m_window.shown();
    if (m_size != window.size()) {
        prepareGeometryChange();
        m_size = window.size();
    }
    setPos(window.topLeft());
    setToolTip(shownFace().description());
    update();
    Q_EMIT shownChanged();
}

QRectF LayerItem::boundingRect() const
{
    return {{0, 0}, m_size};
}

void LayerItem::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                      QWidget * /*widget*/)
{
    const QRectF rect = boundingRect();
    painter->save();
    painter->setOpacity(m_opacity.shown() / 100.0);
    paintPicture(*painter, rect);
    paintBorder(*painter, rect);
    painter->restore();

    const ViewPixels pixels(*painter);
    const QRectF onView = pixels.mapped(rect);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(QColor(255, 255, 255, m_face.isBackground ? 0 : 110), 1));
    painter->drawRect(onView.adjusted(0.5, 0.5, -0.5, -0.5));
    const QRectF visible = rect & mapRectFromParent(parentItem()->boundingRect());
    m_plate =
        paintPlate(*painter, pixels.mapped(visible).adjusted(1, 1, -1, -1), shownFace().lines());
}

void LayerItem::paintPicture(QPainter &painter, const QRectF &rect) const
{
    if (m_face.testColor.isValid()) {
        painter.fillRect(rect, m_face.testColor);
        return;
    }
    QColor color = pictureColor(m_face.sourceId.type, m_face.sourceId.id);
    if (m_face.isBackground)
        color = color.darker(160);
    if (!m_face.hasSignal)
        color = QColor(0x2B, 0x2B, 0x2B);
    painter.fillRect(rect, color);
    if (m_face.hasSignal && !m_face.isFrozen)
        return;
    // A pattern of fixed size in the view; the text names the condition.
    const ViewPixels pixels(painter);
    painter.fillRect(
        pixels.mapped(rect),
        QBrush(QColor(255, 255, 255, 46), m_face.isFrozen ? Qt::CrossPattern : Qt::BDiagPattern));
}

void LayerItem::paintBorder(QPainter &painter, const QRectF &rect) const
{
    if (!m_face.border.isValid())
        return;
    const double vertical = m_face.borderSize.width();
    const double horizontal = m_face.borderSize.height();
    painter.fillRect(QRectF(rect.left(), rect.top(), vertical, rect.height()), m_face.border);
    painter.fillRect(QRectF(rect.right() - vertical, rect.top(), vertical, rect.height()),
                     m_face.border);
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), horizontal), m_face.border);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - horizontal, rect.width(), horizontal),
                     m_face.border);
}

} // namespace Tavoro::Panel
