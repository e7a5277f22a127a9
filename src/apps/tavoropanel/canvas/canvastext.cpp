#include "canvastext.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tavoro::Panel {

namespace {

constexpr double plateMargin = 5; ///< Around the text of a plate, in pixels of the view.
constexpr double narrowest = 28; ///< Narrower areas get no text.

QString elided(const QString &text, const QFont &font, double width,
               Qt::TextElideMode mode = Qt::ElideRight)
{
    return QFontMetricsF(font).elidedText(text, mode, width);
}

/// The height of the first line of a plate: as high as the area allows, and no wider than it is.
int firstLinePixels(const QString &text, const QSizeF &area)
{
    constexpr int smallest = 13;
    constexpr int largest = 22;
    const int byHeight = std::clamp(static_cast<int>(area.height() / 6), smallest, largest);
    const double width = QFontMetricsF(canvasFont(byHeight, true)).horizontalAdvance(text);
    const int byWidth = static_cast<int>(byHeight * area.width() / std::max(width, 1.0));
    return std::clamp(byWidth, smallest, byHeight);
}

} // namespace

ViewPixels::ViewPixels(QPainter &painter)
    : m_painter(painter), m_transform(painter.worldTransform())
{
    m_painter.save();
    m_painter.setWorldTransform({});
}

ViewPixels::~ViewPixels()
{
    m_painter.restore();
}

QFont canvasFont(int pixels, bool isBold)
{
    QFont font = QApplication::font();
    font.setPixelSize(std::max(pixels, 1));
    font.setBold(isBold);
    return font;
}

QRectF paintPlate(QPainter &painter, const QRectF &area, const QStringList &lines)
{
    const QRectF inside = area.adjusted(plateMargin, plateMargin, -plateMargin, -plateMargin);
    if (inside.width() < narrowest || lines.isEmpty())
        return {};
    const int large = firstLinePixels(lines.first(), inside.size());
    const QFont first = canvasFont(large, true);
    const QFont others = canvasFont(std::max(12, large * 3 / 4));

    double y = inside.top();
    double width = 0;
    QList<QPair<QRectF, QString>> placed;
    for (const QString &line : lines) {
        const QFont &font = placed.isEmpty() ? first : others;
        const double height = QFontMetricsF(font).height();
        if (y + height > inside.bottom() + 1)
            break;
        // Names of sources often differ in their last characters.
        const QString text =
            elided(line, font, inside.width(), placed.isEmpty() ? Qt::ElideMiddle : Qt::ElideRight);
        placed.append({QRectF(inside.left(), y, inside.width(), height), text});
        width = std::max(width, QFontMetricsF(font).horizontalAdvance(text));
        y += height;
    }
    if (placed.isEmpty())
        return {};
    const QRectF plate(area.left(), area.top(), std::min(width + 2 * plateMargin, area.width()),
                       y - area.top() + plateMargin);
    painter.fillRect(plate, QColor(0, 0, 0, 150));
    for (int i = 0; i < placed.size(); ++i) {
        painter.setFont(i == 0 ? first : others);
        painter.setPen(i == 0 ? QColor(Qt::white) : QColor(0xD8, 0xD8, 0xD8));
        painter.drawText(placed[i].first, Qt::AlignLeft | Qt::AlignVCenter, placed[i].second);
    }
    return plate;
}

QRectF paintLabel(QPainter &painter, const QRectF &area, const QString &text, const QColor &fill,
                  const QColor &color)
{
    const QFont font = canvasFont(static_cast<int>(area.height() * 0.62), true);
    const double margin = std::round(area.height() * 0.35);
    const double wanted = QFontMetricsF(font).horizontalAdvance(text) + 2 * margin;
    if (area.width() < narrowest)
        return area;
    QRectF label = area;
    label.setWidth(std::min(wanted, area.width()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(label, 3, 3);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(label, Qt::AlignCenter, elided(text, font, label.width() - margin));
    painter.restore();
    return area.adjusted(label.width() + margin, 0, 0, 0);
}

QRectF paintLine(QPainter &painter, const QRectF &area, const QString &text, const QFont &font,
                 const QColor &color)
{
    if (area.width() < narrowest)
        return area;
    const QString shown = elided(text, font, area.width());
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, shown);
    return area.adjusted(QFontMetricsF(font).horizontalAdvance(shown) + 8, 0, 0, 0);
}

} // namespace Tavoro::Panel
