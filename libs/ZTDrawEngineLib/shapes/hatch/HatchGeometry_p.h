#pragma once

#include <QtCore/QPointF>

#include <cmath>

namespace zthatch {

/** How far apart two coordinates of one hatch point may lie. */
constexpr double kSamePointTolerance = 1e-12;

/** Whether two points of the hatch count as one. False for points that are not finite. */
inline bool samePoint(const QPointF &a, const QPointF &b)
{
    return std::fabs(a.x() - b.x()) <= kSamePointTolerance &&
           std::fabs(a.y() - b.y()) <= kSamePointTolerance;
}

/** Side of a line on which a point lies. */
enum class Side { Negative = 0, Positive = 1, OnLine = 2 };

inline Side sideOf(const QPointF &p, const QPointF &q, const QPointF &r)
{
    const double c = (q.x() - p.x()) * (r.y() - q.y()) - (q.y() - p.y()) * (r.x() - q.x());
    if (c > 0)
        return Side::Positive;
    return c < 0 ? Side::Negative : Side::OnLine;
}

} // namespace zthatch
