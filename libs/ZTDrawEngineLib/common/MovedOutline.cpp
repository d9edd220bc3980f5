#include <ZTDrawEngineLib/common/MovedOutline_p.h>

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

/**
 * Adds the curve from `start` over the control points to `end`, `by` away from there.
 *
 * Letters have curves with one control point, from which the path makes two by thirds, which
 * are rounded: the one point is found again, moved, and the thirds are taken anew.
 */
void addMovedCurve(QPainterPath &path, const QPointF &start, const QPointF &second,
                   const QPointF &end, const QPointF &by)
{
    const QPointF control = toNearestStep((3 * second - end) / 2) + by;
    const QPointF movedEnd = end + by;
    path.cubicTo((2 * control + (start + by)) / 3, (2 * control + movedEnd) / 3, movedEnd);
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
        case QPainterPath::CurveToElement:
            // Both points that follow belong to the curve.
            addMovedCurve(path, outline.elementAt(i - 1), outline.elementAt(i + 1),
                          outline.elementAt(i + 2), by);
            i += 2;
            break;
        case QPainterPath::CurveToDataElement:
            break;
        }
    }
}

bool ztoutline::isExactly(const QPainterPath &a, const QPainterPath &b)
{
    if (a.elementCount() != b.elementCount())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        const QPainterPath::Element &left = a.elementAt(i);
        const QPainterPath::Element &right = b.elementAt(i);
        if (left.type != right.type || left.x != right.x || left.y != right.y)
            return false;
    }
    return true;
}
