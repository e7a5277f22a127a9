#include "windowdrag.h"

#include "layergeometry.h"

#include <cstdlib>
#include <utility>

namespace Tavoro::Panel {

WindowDrag::WindowDrag(const QRect &start, Qt::Edges handle, const QPointF &pressed,
                       SnapLines lines)
    : m_start(start), m_handle(handle), m_pressed(pressed), m_lines(std::move(lines))
{ }

SnappedRect WindowDrag::at(const QPointF &pointer, const DragManner &manner) const
{
    const QPoint way = (pointer - m_pressed).toPoint();
    SnappedRect result = isMove() ? moved(way, manner) : resizedBy(way, manner);
    result.rect = withinLimits(result.rect);
    return result;
}

SnappedRect WindowDrag::moved(QPoint way, const DragManner &manner) const
{
    const bool isHorizontal = std::abs(way.x()) >= std::abs(way.y());
    if (manner.isConstrained)
        (isHorizontal ? way.ry() : way.rx()) = 0;
    SnappedRect result{m_start.translated(way), {}, {}};
    if (manner.snapDistance > 0)
        result = m_lines.moved(result.rect, manner.snapDistance);
    if (manner.isConstrained && isHorizontal) {
        result.rect.moveTop(m_start.top());
        result.y.reset();
    } else if (manner.isConstrained) {
        result.rect.moveLeft(m_start.left());
        result.x.reset();
    }
    return result;
}

SnappedRect WindowDrag::resizedBy(const QPoint &way, const DragManner &manner) const
{
    SnappedRect result{resized(m_start, m_handle, way), {}, {}};
    if (manner.snapDistance > 0)
        result = m_lines.resized(result.rect, m_handle, manner.snapDistance, smallestLayer);
    if (!manner.isConstrained)
        return result;
    result.rect = withProportions(result.rect, m_handle, m_start.size());
    // The other direction follows, so it is not on a line any more.
    (m_handle & (Qt::LeftEdge | Qt::RightEdge) ? result.y : result.x).reset();
    return result;
}

} // namespace Tavoro::Panel
