#include <ZTDrawEngineLib/common/MovableText_p.h>

#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <algorithm>
#include <cmath>

namespace {

/** Steps a pixel in which letters are placed, and in which the points of a letter stand. */
constexpr double kStepsPerPixel = 64.0;

/** Limit: farther out the steps no longer fit into the number that holds them. */
constexpr double kFarthestPx = 1000000.0;

/** Letters stand on whole steps; what is between two is cut off. */
double onStep(double px) { return std::trunc(px * kStepsPerPixel) / kStepsPerPixel; }

QPointF onStep(const QPointF &point) { return {onStep(point.x()), onStep(point.y())}; }

QPointF toNearestStep(const QPointF &point)
{
    return {std::round(point.x() * kStepsPerPixel) / kStepsPerPixel,
            std::round(point.y() * kStepsPerPixel) / kStepsPerPixel};
}

bool isNear(const QPointF &position)
{
    return std::abs(position.x()) <= kFarthestPx && std::abs(position.y()) <= kFarthestPx;
}

/**
 * Whether the text is laid out in one go. Where another run follows, of another script or of small
 * capitals, each is cut off to a step for itself.
 */
bool isOneRun(const QFont &font, const QString &text)
{
    return font.capitalization() == QFont::MixedCase &&
           std::all_of(text.begin(), text.end(), [](QChar letter) {
               return letter.unicode() < 128 && letter.isLetterOrNumber();
           });
}

/** Unlike the operator of the class, which takes nearly equal ones for equal. */
bool isExactly(const QPainterPath &a, const QPainterPath &b)
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

ztoutline::MovableText::MovableText(const QFont &font, const QString &text)
    : m_font(font), m_text(text), m_atOrigin(laidOutAt({}))
{
    // Between two steps, and on either side of the origin.
    m_moves = isOneRun(font, text) && movesTo({10.3, -77.7}) && movesTo({-431.9, 44.45});
}

void ztoutline::MovableText::addTo(QPainterPath &path, const QPointF &position) const
{
    path.addPath(m_moves && isNear(position) ? movedTo(position) : laidOutAt(position));
}

QPainterPath ztoutline::MovableText::laidOutAt(const QPointF &position) const
{
    QPainterPath path;
    addText(path, position, m_font, m_text);
    return path;
}

bool ztoutline::MovableText::movesTo(const QPointF &position) const
{
    return isExactly(movedTo(position), laidOutAt(position));
}

QPainterPath ztoutline::MovableText::movedTo(const QPointF &position) const
{
    const QPointF by = onStep(position);
    const int count = m_atOrigin.elementCount();
    QPainterPath path;
    path.setFillRule(m_atOrigin.fillRule());
    path.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element &element = m_atOrigin.elementAt(i);
        switch (element.type) {
        case QPainterPath::MoveToElement:
            path.moveTo(element + by);
            break;
        case QPainterPath::LineToElement:
            path.lineTo(element + by);
            break;
        case QPainterPath::CurveToElement:
            // Both points that follow belong to the curve.
            addMovedCurve(path, m_atOrigin.elementAt(i - 1), m_atOrigin.elementAt(i + 1),
                          m_atOrigin.elementAt(i + 2), by);
            i += 2;
            break;
        case QPainterPath::CurveToDataElement:
            break;
        }
    }
    return path;
}
