#include "StrokeSimplifier.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace fontkit {

namespace {

constexpr int kPiecesPerSegment = 8;

double lengthOf(const QPointF &vector) { return std::hypot(vector.x(), vector.y()); }

/** The point of the line from `from` to `to` that is nearest to `point`. */
QPointF nearestOnSegment(const QPointF &point, const QPointF &from, const QPointF &to)
{
    const QPointF along = to - from;
    const double squared = QPointF::dotProduct(along, along);
    if (squared == 0.0)
        return from;
    const double t = QPointF::dotProduct(point - from, along) / squared;
    return from + qBound(0.0, t, 1.0) * along;
}

/** The angle by which a path turns at `at`, 0 to 180. */
double turnDeg(const QPointF &before, const QPointF &at, const QPointF &after)
{
    const QPointF in = at - before;
    const QPointF out = after - at;
    const double cross = in.x() * out.y() - in.y() * out.x();
    return qRadiansToDegrees(std::abs(std::atan2(cross, QPointF::dotProduct(in, out))));
}

QVector<QPointF> withoutRepeats(const QVector<QPointF> &stroke)
{
    QVector<QPointF> result;
    for (const QPointF &point : stroke) {
        if (result.isEmpty() || result.last() != point)
            result.append(point);
    }
    return result;
}

/** Four points that a spline runs by; the curve leads from `at` to `to`. */
struct SplineSegment
{
    QPointF before;
    QPointF at;
    QPointF to;
    QPointF after;

    /**
     * The curve at 0 to 1, by the pyramid of Barry and Goldman: knots are apart by the square root
     * of the distance of the points, which keeps the curve free of loops.
     */
    QPointF pointAt(double fraction) const
    {
        const double t1 = std::sqrt(lengthOf(at - before));
        const double t2 = t1 + std::sqrt(lengthOf(to - at));
        const double t3 = t2 + std::sqrt(lengthOf(after - to));
        const double t = t1 + fraction * (t2 - t1);
        const auto blend = [t](const QPointF &a, const QPointF &b, double from, double until) {
            return (until - t) / (until - from) * a + (t - from) / (until - from) * b;
        };
        const QPointF a1 = blend(before, at, 0.0, t1);
        const QPointF a2 = blend(at, to, t1, t2);
        const QPointF a3 = blend(to, after, t2, t3);
        return blend(blend(a1, a2, 0.0, t2), blend(a2, a3, t1, t3), t1, t2);
    }
};

/** A point no farther than `reach` from the line, on the way from it to `point`. */
QPointF pulledBack(const QPointF &point, const QPointF &from, const QPointF &to, double reach)
{
    const QPointF foot = nearestOnSegment(point, from, to);
    const double distance = lengthOf(point - foot);
    return distance <= reach ? point : foot + reach / distance * (point - foot);
}

/** Appends the smoothed part between two corners, without its first point. */
void appendSmoothed(QVector<QPointF> &result, const QVector<QPointF> &part, double reach)
{
    const int last = part.size() - 1;
    for (int i = 0; i < last; ++i) {
        SplineSegment segment;
        segment.at = part.at(i);
        segment.to = part.at(i + 1);
        // Beyond its ends a part goes on as it does inside, mirrored.
        segment.before = i > 0 ? part.at(i - 1) : 2.0 * segment.at - segment.to;
        segment.after = i + 1 < last ? part.at(i + 2) : 2.0 * segment.to - segment.at;
        for (int piece = 1; last > 1 && piece < kPiecesPerSegment; ++piece) {
            const QPointF point = segment.pointAt(static_cast<double>(piece) / kPiecesPerSegment);
            result.append(pulledBack(point, segment.at, segment.to, reach));
        }
        result.append(segment.to);
    }
}

} // namespace

double distanceToSegment(const QPointF &point, const QPointF &from, const QPointF &to)
{
    return lengthOf(point - nearestOnSegment(point, from, to));
}

QVector<QPointF> StrokeSimplifier::apply(const QVector<QPointF> &stroke) const
{
    return simplified(smoothed(stroke));
}

QVector<QPointF> StrokeSimplifier::smoothed(const QVector<QPointF> &stroke) const
{
    const QVector<QPointF> points = withoutRepeats(stroke);
    if (smoothingReach <= 0.0 || points.size() < 3)
        return points;
    QVector<QPointF> result = {points.first()};
    int start = 0;
    for (int i = 1; i < points.size(); ++i) {
        const bool isEnd = i + 1 == points.size();
        if (isEnd || turnDeg(points.at(i - 1), points.at(i), points.at(i + 1)) >= cornerDeg) {
            appendSmoothed(result, points.mid(start, i - start + 1), smoothingReach);
            start = i;
        }
    }
    return result;
}

QVector<QPointF> StrokeSimplifier::simplified(const QVector<QPointF> &stroke) const
{
    if (stroke.size() < 3)
        return stroke;
    QVector<bool> isKept(stroke.size(), false);
    isKept.first() = isKept.last() = true;
    QVector<std::pair<int, int>> open = {{0, stroke.size() - 1}};
    while (!open.isEmpty()) {
        const auto [first, last] = open.takeLast();
        int farthest = first;
        double most = tolerance;
        for (int i = first + 1; i < last; ++i) {
            const double distance =
                distanceToSegment(stroke.at(i), stroke.at(first), stroke.at(last));
            if (distance > most) {
                most = distance;
                farthest = i;
            }
        }
        if (farthest == first)
            continue;
        isKept[farthest] = true;
        open.append({first, farthest});
        open.append({farthest, last});
    }
    QVector<QPointF> result;
    for (int i = 0; i < stroke.size(); ++i) {
        if (isKept.at(i))
            result.append(stroke.at(i));
    }
    return result;
}

} // namespace fontkit
