#pragma once

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtGui/QPainterPath>

#include <cstddef>
#include <vector>

namespace zthatch {

/**
 * Straight edges of an outline, numbered through all its polygons.
 *
 * A polygon of n points has n - 1 edges; the last one runs back to the first point. So an open
 * polygon is closed by a chord, and its own last point is dropped.
 */
class HatchOutline
{
public:
    /** The polygons are those of `QPainterPath::toSubpathPolygons`. */
    explicit HatchOutline(const QPainterPath &outlinePx);

    int edgeCount() const { return static_cast<int>(m_edges.size()); }
    const QLineF &edge(int number) const { return m_edges[static_cast<std::size_t>(number)]; }
    int polygonOf(int edgeNumber) const { return m_owners[static_cast<std::size_t>(edgeNumber)]; }
    int polygonCount() const { return static_cast<int>(m_firstEdges.size()) - 1; }

    /** Number of a polygon's first edge; of the polygon after the last one: `edgeCount`. */
    int firstEdge(int polygon) const { return m_firstEdges[static_cast<std::size_t>(polygon)]; }

    /** Rectangle around all polygons. */
    const QRectF &bounds() const { return m_box; }

private:
    bool takeStraight(const QPainterPath &outlinePx);
    void take(const QPointF *points, std::size_t count);

    std::vector<QLineF> m_edges;
    std::vector<int> m_owners;
    std::vector<int> m_firstEdges{0};
    QRectF m_box;
};

} // namespace zthatch
