#pragma once

#include <tavoropanel/selection/identity.h>

#include <tavorocontrol/proto/screen.h>

#include <QGraphicsItem>
#include <QList>
#include <QPainterPath>

namespace Tavoro::Panel {

class LayerItem;

/// What is above the layers of a screen: the borders and blends of its outputs, and how a frozen or
/// faded programme looks.
class ScreenOverlay : public QGraphicsItem {
public:
    /// An overlay above \a layers.
    ScreenOverlay(QGraphicsItem *parent, const QList<LayerItem *> &layers);

    void setScreen(const ProtoModel::Screen::s_ScreenFullDetail &screen, Scene scene);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    void paintOutputs(QPainter &painter) const;
    QPainterPath withoutTexts(const QRectF &area) const;
    void paintConditions(QPainter &painter) const;

    const QList<LayerItem *> &m_layers;
    ProtoModel::Screen::s_ScreenFullDetail m_screen;
    Scene m_scene = Scene::Preview;
};

} // namespace Tavoro::Panel
