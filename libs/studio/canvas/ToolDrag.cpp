#include <studio/canvas/ToolDrag.h>

#include <QtCore/QtMath>

#include <cmath>

namespace studio {

namespace {

constexpr double kStepDeg = 15.0;

/** The way to the opposite corner. */
QPointF boxWay(const ToolDrag &drag)
{
    const QPointF way = drag.toPx - drag.fromPx;
    if (!drag.keepsProportions)
        return way;
    const double factor = qMax(std::abs(way.x()) / drag.proportions.width(),
                               std::abs(way.y()) / drag.proportions.height());
    return {std::copysign(factor * drag.proportions.width(), way.x()),
            std::copysign(factor * drag.proportions.height(), way.y())};
}

/** The way to the end of a line; one that is turned to a whole step is exact along the axes. */
QPointF lineWay(const ToolDrag &drag)
{
    const QPointF way = drag.toPx - drag.fromPx;
    if (!drag.keepsProportions)
        return way;
    const double length = std::hypot(way.x(), way.y());
    const int step = qRound(qRadiansToDegrees(std::atan2(way.y(), way.x())) / kStepDeg);
    switch ((step % 24 + 24) % 24) {
    case 0:
        return {length, 0.0};
    case 6:
        return {0.0, length};
    case 12:
        return {-length, 0.0};
    case 18:
        return {0.0, -length};
    default:
        break;
    }
    const double angle = qDegreesToRadians(step * kStepDeg);
    return {length * std::cos(angle), length * std::sin(angle)};
}

} // namespace

void readKeys(Qt::KeyboardModifiers keys, ToolDrag *drag)
{
    drag->keepsProportions = keys.testFlag(Qt::ShiftModifier);
    drag->isFromCentre = keys.testFlag(Qt::AltModifier);
}

QRectF draggedBox(const ToolDrag &drag)
{
    const QPointF way = boxWay(drag);
    const QPointF first = drag.isFromCentre ? drag.fromPx - way : drag.fromPx;
    return QRectF(first, drag.fromPx + way).normalized();
}

QLineF draggedLine(const ToolDrag &drag)
{
    const QPointF way = lineWay(drag);
    return {drag.isFromCentre ? drag.fromPx - way : drag.fromPx, drag.fromPx + way};
}

} // namespace studio
