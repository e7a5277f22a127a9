#include "snaplines.h"

#include <cstdlib>

namespace Tavoro::Panel {

namespace {

/// The shortest way from a position to a line.
class Nearest {
public:
    explicit Nearest(int distance) : m_distance(distance) { }

    void look(int position, const std::vector<int> &lines)
    {
        for (const int line : lines) {
            const int way = line - position;
            if (std::abs(way) > m_distance || (m_line && std::abs(way) >= std::abs(m_way)))
                continue;
            m_line = line;
            m_way = way;
        }
    }
    /// 0 if no line is near enough.
    int way() const { return m_way; }
    std::optional<int> line() const { return m_line; }

private:
    const int m_distance;
    int m_way = 0;
    std::optional<int> m_line;
};

/// One direction of a rectangle: its first edge and its length.
struct Span {
    int first;
    int length;
};

Nearest nearestOfMoved(const Span &span, const std::vector<int> &edges,
                       const std::vector<int> &centres, int distance)
{
    Nearest nearest(distance);
    nearest.look(span.first, edges);
    nearest.look(span.first + span.length, edges);
    nearest.look(span.first + span.length / 2, centres);
    return nearest;
}

/// Snaps one edge of \a span. Returns the line.
std::optional<int> snapEdge(Span &span, bool isFirst, const std::vector<int> &lines, int distance,
                            int minimum)
{
    Nearest nearest(distance);
    nearest.look(isFirst ? span.first : span.first + span.length, lines);
    const int length = span.length + (isFirst ? -nearest.way() : nearest.way());
    if (length < minimum)
        return std::nullopt;
    if (isFirst)
        span.first += nearest.way();
    span.length = length;
    return nearest.line();
}

} // namespace

void SnapLines::addEdges(const QRect &rect)
{
    m_x.push_back(rect.x());
    m_x.push_back(rect.x() + rect.width());
    m_y.push_back(rect.y());
    m_y.push_back(rect.y() + rect.height());
}

void SnapLines::addCentre(const QRect &rect)
{
    m_centreX.push_back(rect.x() + rect.width() / 2);
    m_centreY.push_back(rect.y() + rect.height() / 2);
}

SnappedRect SnapLines::moved(const QRect &rect, int distance) const
{
    const Nearest x = nearestOfMoved({rect.x(), rect.width()}, m_x, m_centreX, distance);
    const Nearest y = nearestOfMoved({rect.y(), rect.height()}, m_y, m_centreY, distance);
    return {rect.translated(x.way(), y.way()), x.line(), y.line()};
}

SnappedRect SnapLines::resized(const QRect &rect, Qt::Edges edges, int distance, int minimum) const
{
    Span x{rect.x(), rect.width()};
    Span y{rect.y(), rect.height()};
    SnappedRect snapped;
    if (edges & (Qt::LeftEdge | Qt::RightEdge))
        snapped.x = snapEdge(x, edges.testFlag(Qt::LeftEdge), m_x, distance, minimum);
    if (edges & (Qt::TopEdge | Qt::BottomEdge))
        snapped.y = snapEdge(y, edges.testFlag(Qt::TopEdge), m_y, distance, minimum);
    snapped.rect = QRect(x.first, y.first, x.length, y.length);
    return snapped;
}

} // namespace Tavoro::Panel
