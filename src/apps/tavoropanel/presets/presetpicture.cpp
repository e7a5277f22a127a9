#include "presetpicture.h"

#include <QPainter>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

constexpr int pictureMargin = 3;

QRect boundsOf(const PresetLayout &screens)
{
    QRect bounds;
    for (const PresetScreen &screen : screens)
        bounds = bounds.united(screen.area);
    return bounds;
}

/// Scales the canvas to the picture, keeping its proportions.
QTransform toPicture(const QRect &canvas, const QSize &size)
{
    const qreal scale = std::min(qreal(size.width() - 2 * pictureMargin) / canvas.width(),
                                 qreal(size.height() - 2 * pictureMargin) / canvas.height());
    QTransform transform;
    transform.translate((size.width() - canvas.width() * scale) / 2,
                        (size.height() - canvas.height() * scale) / 2);
    transform.scale(scale, scale);
    transform.translate(-canvas.x(), -canvas.y());
    return transform;
}

/// A colour for each place in the stack; the number tells layers apart as well.
QColor layerColour(int place, const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Highlight);
    return QColor::fromHsv((std::max(base.hsvHue(), 0) + place * 47) % 360, 110, 205);
}

void drawLayer(QPainter &painter, const PresetLayer &layer, const QRectF &shown, int place,
               const QPalette &palette)
{
    const QColor colour =
        layer.isBackground ? QColor(0x70, 0x74, 0x78) : layerColour(place, palette);
    painter.setPen(QPen(colour.darker(180), 1));
    painter.setBrush(colour);
    painter.drawRect(shown);
    if (layer.isBackground || shown.width() < 12 || shown.height() < 12)
        return;
    painter.setPen(Qt::black);
    painter.drawText(shown, Qt::AlignCenter, QString::number(place));
}

void drawScreen(QPainter &painter, const PresetScreen &screen, const QTransform &transform,
                const QPalette &palette)
{
    const QRectF area = transform.mapRect(QRectF(screen.area));
    painter.save();
    painter.fillRect(area, screen.colour);
    painter.setClipRect(area);
    int place = 0;
    for (const PresetLayer &layer : screen.layers) {
        const QRect window = layer.window.translated(screen.area.topLeft());
        place += layer.isBackground ? 0 : 1;
        drawLayer(painter, layer, transform.mapRect(QRectF(window)), place, palette);
    }
    painter.setClipping(false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette.color(QPalette::Text), 1));
    painter.drawRect(area);
    painter.restore();
}

} // namespace

QPixmap presetPicture(const std::optional<PresetLayout> &layout, const QSize &size, qreal ratio,
                      const QPalette &palette)
{
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QFont font = painter.font();
    if (!layout) {
        font.setPixelSize(size.height() / 2);
        painter.setFont(font);
        painter.setPen(palette.color(QPalette::Disabled, QPalette::Text));
        painter.drawRect(
            QRect(QPoint(), size)
                .adjusted(pictureMargin, pictureMargin, -pictureMargin, -pictureMargin));
        painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, QStringLiteral("?"));
        return picture;
    }
    font.setPixelSize(10);
    painter.setFont(font);
    const QTransform transform = toPicture(boundsOf(*layout), size);
    for (const PresetScreen &screen : *layout)
        drawScreen(painter, screen, transform, palette);
    return picture;
}

} // namespace Tavoro::Panel
