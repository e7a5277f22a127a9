#pragma once

#include "layerface.h"
#include "shownvalue.h"

#include <QGraphicsObject>

namespace Tavoro::Panel {

/// One layer on the canvas. Its position and size are those of the layer on its screen, in pixels
/// of the screen; its parent is the picture of the screen.
class LayerItem : public QGraphicsObject {
    Q_OBJECT

public:
    /// For qgraphicsitem_cast().
    enum {
        Type = UserType + 1
    };

    explicit LayerItem(QGraphicsItem *parent);

    const ProtoModel::Layer::s_LayerIdentity &id() const { return m_face.id; }
    /// What the device model holds.
    const LayerFace &face() const { return m_face; }
    void setFace(LayerFace face);
    /// What is shown: with values that were sent and that the model does not have yet.
    LayerFace shownFace() const;
    /// True if the operator cannot move the layer: a background fills its screen.
    bool isLocked() const { return m_face.isBackground; }

    QRect window() const { return m_window.shown(); }
    int opacityPercent() const { return m_opacity.shown(); }

    /// Values that the operator has sent to the device. They are shown until the model follows.
    ShownValue<QRect> &shownWindow() { return m_window; }
    ShownValue<int> &shownOpacity() { return m_opacity; }
    /// Shows the item again, after one of these values has changed.
    void show();

    /// Where the text of the layer was painted last, in pixels of the view.
    const QRectF &textArea() const { return m_plate; }

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

Q_SIGNALS:
    /// window() or something else that is shown has changed.
    void shownChanged();

private:
    void paintPicture(QPainter &painter, const QRectF &rect) const;
    void paintBorder(QPainter &painter, const QRectF &rect) const;

    LayerFace m_face;
    ShownValue<QRect> m_window;
    ShownValue<int> m_opacity;
    QSizeF m_size;
    QRectF m_plate; ///< Where the text was painted, in pixels of the view.
};

} // namespace Tavoro::Panel
