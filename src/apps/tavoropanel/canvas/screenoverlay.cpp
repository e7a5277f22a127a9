#include "screenoverlay.h"

#include "canvastext.h"
#include "layeritem.h"

#include <QPainter>

namespace Tavoro::Panel {

namespace {

QRectF areaOf(const ProtoModel::Screen::s_MosaicOutput &output)
{
    const auto &crop = output.crop;
    return QRectF(output.pos.x, output.pos.y, crop.width, crop.height);
}

} // namespace

ScreenOverlay::ScreenOverlay(QGraphicsItem *parent, const QList<LayerItem *> &layers)
    : QGraphicsItem(parent), m_layers(layers)
{
    setAcceptedMouseButtons(Qt::NoButton);
}

void ScreenOverlay::setScreen(const ProtoModel::Screen::s_ScreenFullDetail &screen, Scene scene)
{
    prepareGeometryChange();
    m_screen = screen;
    m_scene = scene;
    update();
}

QRectF ScreenOverlay::boundingRect() const
{
    return {0, 0, double(m_screen.mosaic.window.width), double(m_screen.mosaic.window.height)};
}

void ScreenOverlay::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                          QWidget * /*widget*/)
{
    if (m_scene == Scene::Programme)
        paintConditions(*painter);
    paintOutputs(*painter);
}

void ScreenOverlay::paintOutputs(QPainter &painter) const
{
    const ViewPixels pixels(painter);
    painter.setClipPath(withoutTexts(pixels.mapped(boundingRect())), Qt::IntersectClip);
    const auto &outputs = m_screen.mosaic.outputs;
    for (auto output = outputs.begin(); output != outputs.end(); ++output) {
        // Two outputs that blend share an area.
        for (auto other = std::next(output); other != outputs.end(); ++other) {
            const QRectF blend = areaOf(*output) & areaOf(*other);
            if (!blend.isEmpty())
                painter.fillRect(pixels.mapped(blend),
                                 QBrush(QColor(255, 255, 255, 60), Qt::Dense6Pattern));
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(255, 255, 255, 170), 1, Qt::DashLine));
        painter.drawRect(pixels.mapped(areaOf(*output)).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

/// Lines do not cross the texts of layers.
QPainterPath ScreenOverlay::withoutTexts(const QRectF &area) const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const LayerItem *const layer : m_layers)
        path.addRect(layer->textArea());
    QPainterPath whole;
    whole.addRect(area);
    return whole - path;
}

void ScreenOverlay::paintConditions(QPainter &painter) const
{
    const ViewPixels pixels(painter);
    const QRectF area = pixels.mapped(boundingRect());
    if (m_screen.freeze != 0) {
        painter.fillRect(area, QColor(150, 190, 230, 70));
        painter.fillRect(area, QBrush(QColor(220, 235, 255, 70), Qt::DiagCrossPattern));
    }
    if (m_screen.FTB.enable != 0)
        painter.fillRect(area, QColor(0, 0, 0, 205));
}

} // namespace Tavoro::Panel
