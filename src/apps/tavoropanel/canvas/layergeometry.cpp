#include "layergeometry.h"

#include <algorithm>
#include <cmath>

namespace Tavoro::Panel {

namespace {

constexpr int farthest = 65535; ///< The limit of positions and lengths on the device.

/// 0 for the first edge, 1 for the last, 0.5 if the handle moves neither.
double share(Qt::Edges handle, Qt::Edge first, Qt::Edge last)
{
    if (handle.testFlag(first))
        return 0;
    return handle.testFlag(last) ? 1 : 0.5;
}

/// Moves the first or the last end of a span of pixels.
void resizeSpan(int &first, int &length, bool movesFirst, int way)
{
    const int smallest = std::min(length, smallestLayer);
    const int wanted = std::max(length + (movesFirst ? -way : way), smallest);
    if (movesFirst)
        first += length - wanted;
    length = wanted;
}

} // namespace

const std::array<Qt::Edges, 8> layerHandles = {
    Qt::TopEdge | Qt::LeftEdge,     Qt::TopEdge | Qt::RightEdge, Qt::BottomEdge | Qt::LeftEdge,
    Qt::BottomEdge | Qt::RightEdge, Qt::Edges(Qt::TopEdge),      Qt::Edges(Qt::BottomEdge),
    Qt::Edges(Qt::LeftEdge),        Qt::Edges(Qt::RightEdge),
};

QRect toRect(const ProtoModel::Screen::s_Rect &window)
{
    return {window.x, window.y, window.width, window.height};
}

ProtoModel::Screen::s_Rect toRecord(const QRect &rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

QRect withinLimits(const QRect &rect)
{
    return {std::clamp(rect.x(), -farthest, farthest), std::clamp(rect.y(), -farthest, farthest),
            std::clamp(rect.width(), 1, farthest), std::clamp(rect.height(), 1, farthest)};
}

QPointF handlePosition(const QRectF &rect, Qt::Edges handle)
{
    return {rect.x() + rect.width() * share(handle, Qt::LeftEdge, Qt::RightEdge),
            rect.y() + rect.height() * share(handle, Qt::TopEdge, Qt::BottomEdge)};
}

Qt::Edges handleAt(const QRectF &rect, const QPointF &position, const QSizeF &reach)
{
    for (const Qt::Edges handle : layerHandles) {
        const QPointF way = position - handlePosition(rect, handle);
        if (std::abs(way.x()) <= reach.width() && std::abs(way.y()) <= reach.height())
            return handle;
    }
    return {};
}

Qt::CursorShape cursorOf(Qt::Edges handle)
{
    const bool isHorizontal = handle & (Qt::LeftEdge | Qt::RightEdge);
    const bool isVertical = handle & (Qt::TopEdge | Qt::BottomEdge);
    if (isHorizontal && isVertical)
        return handle.testFlag(Qt::TopEdge) == handle.testFlag(Qt::LeftEdge) ? Qt::SizeFDiagCursor
                                                                             : Qt::SizeBDiagCursor;
    if (isHorizontal)
        return Qt::SizeHorCursor;
    return isVertical ? Qt::SizeVerCursor : Qt::SizeAllCursor;
}

QRect resized(const QRect &rect, Qt::Edges handle, const QPoint &way)
{
    int x = rect.x();
    int y = rect.y();
    int width = rect.width();
    int height = rect.height();
    if (handle & (Qt::LeftEdge | Qt::RightEdge))
        resizeSpan(x, width, handle.testFlag(Qt::LeftEdge), way.x());
    if (handle & (Qt::TopEdge | Qt::BottomEdge))
        resizeSpan(y, height, handle.testFlag(Qt::TopEdge), way.y());
    return {x, y, width, height};
}

QRect withProportions(const QRect &rect, Qt::Edges handle, const QSize &model)
{
    if (model.isEmpty())
        return rect;
    const double ratio = double(model.width()) / model.height();
    QSize size = rect.size();
    if (handle & (Qt::LeftEdge | Qt::RightEdge))
        size.setHeight(std::max(1, static_cast<int>(std::lround(size.width() / ratio))));
    else
        size.setWidth(std::max(1, static_cast<int>(std::lround(size.height() * ratio))));
    const int x = handle.testFlag(Qt::LeftEdge) ? rect.x() + rect.width() - size.width() : rect.x();
    const int y =
        handle.testFlag(Qt::TopEdge) ? rect.y() + rect.height() - size.height() : rect.y();
    return {QPoint(x, y), size};
}

} // namespace Tavoro::Panel
