#include <ZTDrawEngineLib/common/MovedOutline_p.h>

#include <ZTDrawEngineLib/common/Exactly_p.h>

#include <cmath>

namespace {

/** Steps a pixel in which letters are placed, and in which the points of a letter stand. */
constexpr double kStepsPerPixel = 64.0;

constexpr double kFarthestPx = 1000000.0;

double onStep(double px) { return std::trunc(px * kStepsPerPixel) / kStepsPerPixel; }

QPointF toNearestStep(const QPointF &point)
{
    return {std::round(point.x() * kStepsPerPixel) / kStepsPerPixel,
            std::round(point.y() * kStepsPerPixel) / kStepsPerPixel};
}

/** To the last bit, which the points' own operator does not ask for. */
bool isSame(const QPointF &a, const QPointF &b)
{
    return isExactly(a.x(), b.x()) && isExactly(a.y(), b.y());
}

bool isOnStep(const QPointF &point) { return isSame(toNearestStep(point), point); }

bool isOnHalfStep(const QPointF &point) { return isOnStep(2 * point); }

/** The points that make a curve: its own two control points, or both of them from one. */
struct Curve
{
    QPointF start;
    QPointF first;
    QPointF second;
    QPointF end;
};

Curve curveAt(const QPainterPath &outline, int i)
{
    return {outline.elementAt(i - 1), outline.elementAt(i), outline.elementAt(i + 1),
            outline.elementAt(i + 2)};
}

bool hasOwnControlPoints(const Curve &curve)
{
    return isOnStep(curve.first) && isOnStep(curve.second);
}

/**
 * A curve made from one control point, `by` away from there.
 *
 * The path takes two points by thirds from the one, which are rounded: the one is found again,
 * moved, and the thirds are taken anew.
 */
Curve movedByThirds(const Curve &curve, const QPointF &by)
{
    const QPointF control = toNearestStep((3 * curve.second - curve.end) / 2) + by;
    const QPointF start = curve.start + by;
    const QPointF end = curve.end + by;
    return {start, (2 * control + start) / 3, (2 * control + end) / 3, end};
}

Curve moved(const Curve &curve, const QPointF &by)
{
    if (hasOwnControlPoints(curve))
        return {curve.start + by, curve.first + by, curve.second + by, curve.end + by};
    return movedByThirds(curve, by);
}

/** Whether it comes out as it is where it is moved by nothing. */
bool canMove(const Curve &curve)
{
    const Curve there = moved(curve, {});
    return isSame(there.first, curve.first) && isSame(there.second, curve.second);
}

} // namespace

QPointF ztoutline::onStep(const QPointF &point)
{
    return {::onStep(point.x()), ::onStep(point.y())};
}

bool ztoutline::isNear(const QPointF &point)
{
    return std::abs(point.x()) <= kFarthestPx && std::abs(point.y()) <= kFarthestPx;
}

bool ztoutline::isMovable(const QPainterPath &outline)
{
    int i = 0;
    while (i < outline.elementCount()) {
        const bool isCurve = outline.elementAt(i).type == QPainterPath::CurveToElement;
        if (isCurve && !canMove(curveAt(outline, i)))
            return false;
        i += isCurve ? 2 : 0; // to where it ends
        if (!isOnHalfStep(outline.elementAt(i)))
            return false;
        ++i;
    }
    return true;
}

void ztoutline::addMoved(QPainterPath &path, const QPainterPath &outline, const QPointF &by)
{
    const int count = outline.elementCount();
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element &element = outline.elementAt(i);
        switch (element.type) {
        case QPainterPath::MoveToElement:
            path.moveTo(element + by);
            break;
        case QPainterPath::LineToElement:
            path.lineTo(element + by);
            break;
        case QPainterPath::CurveToElement: {
            const Curve curve = moved(curveAt(outline, i), by);
            path.cubicTo(curve.first, curve.second, curve.end);
            i += 2; // both points that follow belong to the curve
            break;
        }
        case QPainterPath::CurveToDataElement:
            break;
        }
    }
}
