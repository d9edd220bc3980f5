#include <ZTDrawEngineLib/model/ZTPointSort.h>

#include <algorithm>
#include <cmath>

template class ZTSingletonTemplate<ZTPointSort>;

namespace {

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
    if (shapeMarkSort == EShapeSortType::ShapeSortXFromMin) {
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

void ZTPointSort::setShapeMarkSort(EShapeSortType type) { shapeMarkSort = type; }

EShapeSortType ZTPointSort::getShapeMarkSort() const { return shapeMarkSort; }
