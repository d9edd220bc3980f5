#include <fontkit/GlyphShapes_p.h>

#include <fontkit/StrokeSimplifier.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace fontkit {

namespace {

// The field of a character of the big font.
constexpr double kLeft = 0.0;
constexpr double kRight = 240.0;
constexpr double kBottom = -31.0;
constexpr double kTop = 225.0;
constexpr QPointF kMiddle(120.0, 97.0);
constexpr double kApart = 14.0; // lines of a double arm, and edges of a heavy one, from its middle

template <class Change>
Strokes changed(Strokes strokes, Change change)
{
    for (QVector<QPointF> &stroke : strokes) {
        for (QPointF &point : stroke)
            point = change(point);
    }
    return strokes;
}

/** Distances from the middle of an arm's lines. */
QVector<double> linesOf(QChar arm)
{
    if (arm == QLatin1Char('l'))
        return {0.0};
    if (arm == QLatin1Char('h'))
        return {-kApart / 2.0, 0.0, kApart / 2.0};
    if (arm == QLatin1Char('d'))
        return {-kApart, kApart};
    return {};
}

/** A line in as many dashes, gaps half as long between them and at its ends. */
void appendDashed(Strokes *strokes, const QPointF &from, const QPointF &to, int dashes)
{
    if (dashes < 2) {
        strokes->append({from, to});
        return;
    }
    const QPointF step = (to - from) / (3.0 * dashes); // two of a dash, one of a gap
    for (int i = 0; i < dashes; ++i) {
        const QPointF begin = from + step * (3.0 * i + 0.5);
        strokes->append({begin, begin + step * 2.0});
    }
}

/**
 * How far from the middle a line of an arm begins, towards the arm's end. `across` are the arms
 * that cross it, the one on the side of negative offsets first; `isThrough` says that the arm goes
 * on beyond the middle.
 */
double beginOf(double offset, QChar arm, const QString &across, bool isThrough)
{
    const QLatin1Char kDouble('d');
    const bool isNearDouble = across.at(offset < 0.0 ? 0 : 1) == kDouble;
    const bool isFarDouble = across.at(offset < 0.0 ? 1 : 0) == kDouble;
    if (arm == kDouble && isNearDouble)
        return kApart; // the inner corner
    if (isThrough)
        return 0.0;
    if (isNearDouble && isFarDouble)
        return kApart;                                  // where the first of two lines stands
    return isNearDouble || isFarDouble ? -kApart : 0.0; // the outer corner, or the middle
}

} // namespace

StrokeBox boxOf(const Strokes &strokes)
{
    StrokeBox box;
    bool isFirst = true;
    for (const QVector<QPointF> &stroke : strokes) {
        for (const QPointF &point : stroke) {
            box.left = isFirst ? point.x() : std::min(box.left, point.x());
            box.right = isFirst ? point.x() : std::max(box.right, point.x());
            box.bottom = isFirst ? point.y() : std::min(box.bottom, point.y());
            box.top = isFirst ? point.y() : std::max(box.top, point.y());
            isFirst = false;
        }
    }
    return box;
}

QVector<QPointF> smoothCurve(const QVector<QPointF> &points)
{
    constexpr double kTolerance = 0.6;
    constexpr double kReach = 100.0;
    constexpr double kCornerDeg = 100.0;
    return StrokeSimplifier{kTolerance, kReach, kCornerDeg}.apply(points);
}

QVector<QPointF> ellipse(const QPointF &middle, const QPointF &radii)
{
    // Chords leave a circle of 100 by less than one unit.
    const int pieces = std::max(std::abs(radii.x()), std::abs(radii.y())) < 40.0 ? 16 : 24;
    QVector<QPointF> points;
    for (int i = 0; i < pieces; ++i) {
        const double angle = 2.0 * M_PI * (0.25 + static_cast<double>(i) / pieces);
        points.append(middle + QPointF(radii.x() * std::cos(angle), radii.y() * std::sin(angle)));
    }
    points.append(points.first());
    return points;
}

QVector<QPointF> diamond(const QPointF &middle)
{
    constexpr double kRadius = 10.0;
    const QPointF right(kRadius, 0.0);
    const QPointF up(0.0, kRadius);
    return {middle + up, middle - right, middle - up, middle + right, middle + up};
}

Strokes boxLines(const QString &arms)
{
    const QChar left = arms.at(0);
    const QChar right = arms.at(1);
    const QChar top = arms.at(2);
    const QChar bottom = arms.at(3);
    const int dashes = arms.size() > 4 ? arms.at(4).digitValue() : 1;
    const QString columns = QString(bottom) + top;
    const QString rows = QString(left) + right;
    const bool isRow = left == right;
    const bool isColumn = top == bottom;
    Strokes strokes;
    if (dashes > 1) {
        for (const double y : linesOf(left))
            appendDashed(&strokes, {kLeft, kMiddle.y() + y}, {kRight, kMiddle.y() + y}, dashes);
        for (const double x : linesOf(top))
            appendDashed(&strokes, {kMiddle.x() + x, kTop}, {kMiddle.x() + x, kBottom}, dashes);
        return strokes;
    }
    for (const double y : linesOf(left))
        strokes.append({{kLeft, kMiddle.y() + y},
                        {kMiddle.x() - beginOf(y, left, columns, isRow), kMiddle.y() + y}});
    for (const double y : linesOf(right))
        strokes.append({{kMiddle.x() + beginOf(y, right, columns, isRow), kMiddle.y() + y},
                        {kRight, kMiddle.y() + y}});
    for (const double x : linesOf(top))
        strokes.append({{kMiddle.x() + x, kTop},
                        {kMiddle.x() + x, kMiddle.y() + beginOf(x, top, rows, isColumn)}});
    for (const double x : linesOf(bottom))
        strokes.append({{kMiddle.x() + x, kMiddle.y() - beginOf(x, bottom, rows, isColumn)},
                        {kMiddle.x() + x, kBottom}});
    return strokes;
}

Strokes moved(Strokes strokes, const QPointF &by)
{
    return changed(std::move(strokes), [&by](const QPointF &point) { return point + by; });
}

Strokes scaled(Strokes strokes, const QPointF &by)
{
    return changed(std::move(strokes), [&by](const QPointF &point) {
        return QPointF(point.x() * by.x(), point.y() * by.y());
    });
}

Strokes flipped(Strokes strokes, double width)
{
    return changed(std::move(strokes),
                   [width](const QPointF &point) { return QPointF(width - point.x(), point.y()); });
}

Strokes quarterTurned(Strokes strokes, const QPointF &about)
{
    return changed(std::move(strokes), [&about](const QPointF &point) {
        const QPointF from = point - about;
        return about + QPointF(from.y(), -from.x());
    });
}

} // namespace fontkit
