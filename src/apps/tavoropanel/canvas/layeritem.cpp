#include "layeritem.h"

#include "canvastext.h"
#include "canvastheme.h"

#include <QPainter>
#include <QTimer>

#include <chrono>
#include <utility>

namespace Tavoro::Panel {

namespace {

/// How long an accepted value is shown if the device does not hold it afterwards.
constexpr std::chrono::milliseconds followTime(2000);

} // namespace

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

quint64 LayerItem::sendWindow(const QRect &window)
{
    const quint64 number = m_window.send(window);
    show();
    return number;
}

void LayerItem::endWindow(quint64 number, bool isAccepted)
{
    end(m_window, number, isAccepted);
}

quint64 LayerItem::sendOpacity(int percent)
{
    const quint64 number = m_opacity.send(percent);
    show();
    return number;
}

void LayerItem::endOpacity(quint64 number, bool isAccepted)
{
    end(m_opacity, number, isAccepted);
}

template <class Value>
void LayerItem::end(ShownValue<Value> &value, quint64 number, bool isAccepted)
{
    if (isAccepted) {
        value.confirm(number);
        // The device may hold another value than it has accepted.
        QTimer::singleShot(followTime, this, [this, &value, number] {
            value.drop(number);
            show();
        });
    } else {
        value.drop();
    }
    show();
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
    m_plate = paintPlate(*painter, onView.adjusted(1, 1, -1, -1), shownFace().lines());
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
