#pragma once

#include <tavorocontrol/proto/geometry.h>

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSizeF>
#include <Qt>

#include <array>

namespace Tavoro::Panel {

/// The smallest width and height to which layers are resized by hand, in pixels of the screen.
constexpr int smallestLayer = 32;

/// The handles of a layer, by the edges that they move: corners and middles of the edges.
extern const std::array<Qt::Edges, 8> layerHandles;

QRect toRect(const ProtoModel::Screen::s_Rect &window);
ProtoModel::Screen::s_Rect toRecord(const QRect &rect);

/// Keeps \a rect within what a device accepts: positions of -65535 to 65535, and lengths of 1 to
/// 65535 pixels.
QRect withinLimits(const QRect &rect);

/// Position of a handle.
QPointF handlePosition(const QRectF &rect, Qt::Edges handle);
/// The handle at \a position, which is at most \a reach away from it; empty if there is none. A
/// corner is preferred to an edge.
Qt::Edges handleAt(const QRectF &rect, const QPointF &position, const QSizeF &reach);
/// The cursor that shows where a handle moves.
Qt::CursorShape cursorOf(Qt::Edges handle);

/// Moves the edges of \a rect that \a handle names by \a way. The opposite edges stay, and lengths
/// do not get smaller than smallestLayer, unless they were so before.
QRect resized(const QRect &rect, Qt::Edges handle, const QPoint &way);
/// Gives \a rect the proportions of \a model, by its width if \a handle moves a vertical edge,
/// otherwise by its height. The edges opposite to \a handle stay.
QRect withProportions(const QRect &rect, Qt::Edges handle, const QSize &model);

} // namespace Tavoro::Panel
