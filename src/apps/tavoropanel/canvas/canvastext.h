#pragma once

#include <QFont>
#include <QRectF>
#include <QStringList>
#include <QTransform>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// Paints in pixels of the view while it exists, so that texts and frames keep their size at every
/// zoom.
class ViewPixels {
public:
    explicit ViewPixels(QPainter &painter);
    ~ViewPixels();
    ViewPixels(const ViewPixels &) = delete;
    ViewPixels &operator=(const ViewPixels &) = delete;

    /// Where a rectangle of the item is in the view.
    QRectF mapped(const QRectF &rect) const { return m_transform.mapRect(rect); }

private:
    QPainter &m_painter;
    const QTransform m_transform;
};

/// A font of \a pixels height.
QFont canvasFont(int pixels, bool isBold = false);

/// Paints lines of text on a dark plate in the upper left corner of \a area, the first line larger.
/// Lines are elided; those that do not fit are left out. In pixels of the view.
/// Returns the plate, which is empty if no line fits.
QRectF paintPlate(QPainter &painter, const QRectF &area, const QStringList &lines);

/// Paints a filled label with its left edge at the left edge of \a area, as high as it is. Returns
/// the rest of \a area to the right; paints nothing if \a area is too narrow.
QRectF paintLabel(QPainter &painter, const QRectF &area, const QString &text, const QColor &fill,
                  const QColor &color);

/// Paints one elided line of text, vertically centred. Returns the rest of \a area to the right;
/// paints nothing if \a area is too narrow.
QRectF paintLine(QPainter &painter, const QRectF &area, const QString &text, const QFont &font,
                 const QColor &color);

} // namespace Tavoro::Panel
