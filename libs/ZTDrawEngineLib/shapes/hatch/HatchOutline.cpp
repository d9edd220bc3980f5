#include <ZTDrawEngineLib/shapes/hatch/HatchOutline_p.h>

namespace zthatch {

HatchOutline::HatchOutline(const QList<QPolygonF> &polygons)
{
    std::size_t pointCount = 0;
    for (const QPolygonF &polygon : polygons)
        pointCount += static_cast<std::size_t>(polygon.size());
    m_edges.reserve(pointCount);
    m_owners.reserve(pointCount);
    m_firstEdges.reserve(static_cast<std::size_t>(polygons.size()) + 1);
    for (int p = 0; p < polygons.size(); ++p) {
        const QPolygonF &polygon = polygons[p];
        const int last = polygon.size() - 2;
        for (int i = 0; i <= last; ++i) {
            m_edges.emplace_back(polygon[i], i == last ? polygon[0] : polygon[i + 1]);
            m_owners.push_back(p);
        }
        m_firstEdges.push_back(edgeCount());
        m_box = m_box.united(polygon.boundingRect());
    }
}

} // namespace zthatch
