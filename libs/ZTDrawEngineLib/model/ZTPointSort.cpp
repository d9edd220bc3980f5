#include <ZTDrawEngineLib/model/ZTPointSort.h>

#include <ZTDrawEngineLib/model/GreedyChain_p.h>

#include <algorithm>
#include <cmath>

template class ZTSingletonTemplate<ZTPointSort>;

namespace {

/** Where chains start, in mark units: outside any work area. */
constexpr double kFarAway = 30000.0;

/** Moves what has no first x to the end, NaN before empty; returns the end of the sortable part. */
QList<QPolygonF>::iterator setUnsortableAside(QList<QPolygonF> &polygons)
{
    const auto filledEnd =
        std::stable_partition(polygons.begin(), polygons.end(),
                              [](const QPolygonF &polygon) { return !polygon.isEmpty(); });
    return std::stable_partition(polygons.begin(), filledEnd, [](const QPolygonF &polygon) {
        return !std::isnan(polygon.first().x());
    });
}

} // namespace

QList<QPolygonF> ZTPointSort::sort(QList<QPolygonF> &polygons)
{
    const auto begin = polygons.begin();
    const auto end = setUnsortableAside(polygons);
    if (m_shapeMarkSort == EShapeSortType::ShapeSortXFromMin) {
        std::sort(begin, end, [](const QPolygonF &a, const QPolygonF &b) {
            return a.first().x() < b.first().x();
        });
    } else {
        std::sort(begin, end, [](const QPolygonF &a, const QPolygonF &b) {
            return a.first().x() > b.first().x();
        });
    }
    return polygons;
}

ZTMarkGraph &ZTPointSort::markGraphSort(ZTMarkGraph &graph)
{
    if (!check(graph))
        return graph;
    switch (m_shapeMarkSort) {
    case EShapeSortType::ShapeSortNearest:
        return sort(graph, LargerDifference(), {kFarAway, kFarAway});
    case EShapeSortType::ShapeSortXFromMin:
        return sort(graph, XDifference(), {-kFarAway, 0});
    case EShapeSortType::ShapeSortXFromMax:
        return sort(graph, XDifference(), {kFarAway, 0});
    case EShapeSortType::ShapeSortYFromMin:
        return sort(graph, YDifference(), {0, -kFarAway});
    case EShapeSortType::ShapeSortYFromMax:
        return sort(graph, YDifference(), {0, kFarAway});
    case EShapeSortType::ShapeSortNone:
        break;
    }
    return graph;
}

bool ZTPointSort::check(const ZTMarkGraph &graph)
{
    if (graph.objects.isEmpty())
        return false;
    const QList<QPolygonF> &lines = graph.objects.constFirst().lines;
    return !lines.isEmpty() && !lines.constFirst().isEmpty();
}

ZTMarkGraph &ZTPointSort::sort(ZTMarkGraph &graph, Cost cost, QPointF start)
{
    const std::vector<int> order = greedyChain(graph.objects, cost, start);
    // Kept: a chain that ends early leaves default objects in the places behind it.
    QVector<ZTMarkObject> sorted;
    sorted.reserve(graph.objects.size());
    ZTMarkObject *const source = graph.objects.data();
    for (const int index : order)
        sorted.append(std::move(source[index]));
    sorted.resize(graph.objects.size());
    graph.objects = std::move(sorted);
    return graph;
}

void ZTPointSort::setShapeMarkSort(EShapeSortType type) { m_shapeMarkSort = type; }

EShapeSortType ZTPointSort::getShapeMarkSort() const { return m_shapeMarkSort; }
