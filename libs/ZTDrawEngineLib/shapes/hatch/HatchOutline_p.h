#pragma once

#include <QtCore/QLineF>
#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtGui/QPolygonF>

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
    explicit HatchOutline(const QList<QPolygonF> &polygons);

    int edgeCount() const { return static_cast<int>(edges.size()); }
    const QLineF &edge(int number) const { return edges[static_cast<std::size_t>(number)]; }
    int polygonOf(int edgeNumber) const { return owners[static_cast<std::size_t>(edgeNumber)]; }
    int polygonCount() const { return static_cast<int>(firstEdges.size()) - 1; }

    /** Number of a polygon's first edge; of the polygon after the last one: `edgeCount`. */
    int firstEdge(int polygon) const { return firstEdges[static_cast<std::size_t>(polygon)]; }

    /** Rectangle around all polygons. */
    const QRectF &bounds() const { return box; }

private:
    std::vector<QLineF> edges;
    std::vector<int> owners;
    std::vector<int> firstEdges{0};
    QRectF box;
};

} // namespace zthatch
