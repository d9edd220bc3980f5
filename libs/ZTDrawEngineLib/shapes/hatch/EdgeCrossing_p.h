#pragma once

#include <QtCore/QLineF>
#include <QtCore/QPointF>

#include <cmath>

namespace zthatch {

/** One scan line, with its vector, which every edge asks for. */
struct ScanLine
{
    explicit ScanLine(const QLineF &line_ = QLineF()) : line(line_), vector(line.p2() - line.p1())
    {
    }

    QLineF line;
    QPointF vector;
};

/**
 * Whether a scan line and an edge cross between their ends, and where: the answer of
 * `QLineF::intersects` to the last bit, `BoundedIntersection` alone being a crossing.
 *
 * Its steps are written out because one call for each crossing takes longer than they do. Where
 * a compiler fuses products and sums unless told otherwise, Qt's build has other bits than ours,
 * and Qt is asked.
 */
inline bool crosses(const ScanLine &scan, const QLineF &edge, QPointF *point)
{
#if defined(__x86_64__) || defined(_M_X64)
    const double ax = scan.vector.x();
    const double ay = scan.vector.y();
    const double bx = edge.x1() - edge.x2();
    const double by = edge.y1() - edge.y2();
    const double cx = scan.line.x1() - edge.x1();
    const double cy = scan.line.y1() - edge.y1();
    const double denominator = ay * bx - ax * by;
    if (denominator == 0 || !std::isfinite(denominator))
        return false;
    const double reciprocal = 1 / denominator;
    const double alongScan = (by * cx - bx * cy) * reciprocal;
    const double alongEdge = (ax * cy - ay * cx) * reciprocal;
    *point = {scan.line.x1() + ax * alongScan, scan.line.y1() + ay * alongScan};
    // One that is not a number is not outside.
    const bool isOutside = alongScan < 0 || alongScan > 1 || alongEdge < 0 || alongEdge > 1;
    return !isOutside;
#else
    return scan.line.intersects(edge, point) == QLineF::BoundedIntersection;
#endif
}

} // namespace zthatch
