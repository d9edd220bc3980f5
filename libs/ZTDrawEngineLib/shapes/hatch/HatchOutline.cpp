#include <ZTDrawEngineLib/shapes/hatch/HatchOutline_p.h>

namespace zthatch {

HatchOutline::HatchOutline(const QList<QPolygonF> &polygons)
{
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
