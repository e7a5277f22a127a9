#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Panel {

/// Height of the bar below the screens, in pixels of the view.
constexpr double hintBarHeight = 44;

/// What to read instead of the screens, or below them if there are some; empty if the screens are
/// up to date. \a device may be null.
QString canvasHint(const DeviceSession *device, bool hasScreens);

/// Paints a hint in the middle of \a view.
void paintHint(QPainter &painter, const QRectF &view, const QString &text, const QColor &color);
/// Paints the frame of a view that has the keyboard.
void paintFocus(QPainter &painter, const QRectF &view, const QColor &color);
/// Paints a hint on a bar at the lower edge of \a view.
void paintHintBar(QPainter &painter, const QRectF &view, const QString &text);

} // namespace Tavoro::Panel
