#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/common/ZTSingletonTemplate.h>
#include <ZTDrawEngineLib/model/ZTMarkData.h>

#include <algorithm>
#include <cmath>
#include <functional>

class ZTDRAWENGINELIB_EXPORT ZTPointSort;
extern template class ZTSingletonTemplate<ZTPointSort>;

/**
 * Orders what is marked: the polygons inside one shape, and the objects of a mark graph.
 *
 * The two orders are different on purpose. Polygons are ordered by x alone, as a shape rebuilds
 * its lines. Objects are chained greedily, from a start point outside any work area, each time
 * taking the object that costs least to reach:
 *
 * | kind                | start point     | cost between two points                       |
 * |---------------------|-----------------|-----------------------------------------------|
 * | `ShapeSortNone`     |                 | no sorting; the state of a new instance       |
 * | `ShapeSortNearest`  | (30000, 30000)  | larger of the absolute x and y differences    |
 * | `ShapeSortXFromMin` | (-30000, 0)     | absolute x difference                         |
 * | `ShapeSortXFromMax` | (30000, 0)      | absolute x difference                         |
 * | `ShapeSortYFromMin` | (0, -30000)     | absolute y difference                         |
 * | `ShapeSortYFromMax` | (0, 30000)      | absolute y difference                         |
 *
 * Frame: whatever the data is in; the start points are meant for mark units.
 * Owner: the kind is process-wide state, part of no document.
 */
class ZTDRAWENGINELIB_EXPORT ZTPointSort : public ZTSingletonTemplate<ZTPointSort>
{
    friend class ZTSingletonTemplate<ZTPointSort>;
    friend struct LargerDifference; // pointSub as a type of its own, inside the library

public:
    /**
     * Sorts the polygons of one shape by the x of their first points and returns a copy of them.
     *
     * Ascending for `ShapeSortXFromMin`, descending for every other kind, 0 included. The order
     * of equal x is the one that `std::sort` leaves. Polygons whose first x is not a number come
     * behind all others, empty ones last of all.
     */
    virtual QList<QPolygonF> sort(QList<QPolygonF> &polygons);

    /**
     * Orders the objects of `graph` by the current kind, in place, and returns `graph`.
     *
     * No object and no polygon is reversed, and `graph.rect` stays. The next start point is the
     * first point of the last polygon of the object just taken. The earliest object wins a tie.
     * An object without polygons is never chosen while others can be. An object whose first
     * polygon is empty hides all objects behind it from the steps that reach it.
     *
     * Failure: the graph comes back unchanged when it is empty, when its first object has no
     * polygon or an empty first one, and for a kind outside the table. When the object just taken
     * has no polygons, or an empty last one, the chain ends there: the remaining places hold
     * default objects and what they stood for is lost. Where every object costs
     * 999999999999999.0 or more, or has no number for a place, the first remaining one is taken.
     *
     * Takes about n log n steps, whatever ties the objects make. A thousand places that are not
     * finite numbers make each step a thousand longer.
     */
    ZTMarkGraph &markGraphSort(ZTMarkGraph &graph);

    void setShapeMarkSort(EShapeSortType type); ///< how `markGraphSort` and `sort` order
    EShapeSortType getShapeMarkSort() const;    ///< the kind of order set last

private:
    using Cost = std::function<double(const QPointF &, const QPointF &)>;

    ZTPointSort() = default;
    virtual ~ZTPointSort() = default;

    bool check(const ZTMarkGraph &graph);
    ZTMarkGraph &sort(ZTMarkGraph &graph, Cost cost, QPointF start);
    static double pointSub(const QPointF &a, const QPointF &b)
    {
        return std::max(std::abs(a.x() - b.x()), std::abs(a.y() - b.y()));
    }

    EShapeSortType m_shapeMarkSort = EShapeSortType::ShapeSortNone;
};
