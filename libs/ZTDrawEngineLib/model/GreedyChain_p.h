#pragma once

#include <ZTDrawEngineLib/model/ZTPointSort.h>

#include <cmath>
#include <functional>
#include <vector>

/** What it costs to go from one point to another. */
using PointCost = std::function<double(const QPointF &, const QPointF &)>;

/** The larger of the absolute differences of x and y. */
struct LargerDifference
{
    double operator()(const QPointF &a, const QPointF &b) const
    {
        return ZTPointSort::pointSub(a, b);
    }
};

/** The absolute difference of x. */
struct XDifference
{
    double operator()(const QPointF &a, const QPointF &b) const { return std::abs(a.x() - b.x()); }
};

/** The absolute difference of y. */
struct YDifference
{
    double operator()(const QPointF &a, const QPointF &b) const { return std::abs(a.y() - b.y()); }
};

/**
 * Order in which a greedy chain from `start` takes the objects, as indices into `objects`.
 *
 * Each step takes, of the remaining objects, the one whose first point costs least to reach, the
 * earliest of equals; the first one when none costs less than 999999999999999.0. Objects without
 * polygons are passed over, and an object with an empty first polygon hides those behind it. The
 * next step starts from the first point of the last polygon. The chain ends behind an object
 * without polygons or with an empty last one, so there may be fewer indices than objects.
 *
 * The cost must never fall as the absolute difference of x or of y grows, as it is computed.
 * Computed in n log n steps on ordinary data, with the result of the walk over all objects.
 */
std::vector<int> greedyChain(const QVector<ZTMarkObject> &objects, const PointCost &cost,
                             const QPointF &start);
