#include <studio/shapes/ShapeMeasures.h>

#include <QtCore/QtMath>

#include <cmath>

namespace studio {

namespace {

constexpr double kFullTurnDeg = 360.0;
constexpr double kHalfTurnDeg = 180.0;

/** Turns that are exact: their sines and cosines are, too. */
constexpr double kQuarterTurnDeg = 90.0;

const ZTCoord &coord() { return *ZTCoord::getInstance(); }

QPointF toPx(const QPointF &mm) { return coord().getMm2pixTransform().map(mm); }

/** What a transform does to directions. */
QTransform withoutShift(const QTransform &t) { return {t.m11(), t.m12(), t.m21(), t.m22(), 0, 0}; }

/** `linear` done to a placed shape about a point of the field. */
Placement changed(const Placement &from, const QPointF &aboutMm, const QTransform &linear)
{
    const QPointF aboutPx = toPx(aboutMm);
    return {from.item, aboutPx + linear.map(from.posPx - aboutPx), from.transform * linear};
}

/** A turn, counter-clockwise on the screen. */
QTransform turn(double angleDeg)
{
    const double quarters = angleDeg / kQuarterTurnDeg;
    if (quarters == std::floor(quarters)) {
        static constexpr double kCosines[] = {1.0, 0.0, -1.0, 0.0};
        const int quarter = static_cast<int>(std::fmod(std::fmod(quarters, 4.0) + 4.0, 4.0));
        const double cosine = kCosines[quarter];
        const double sine = kCosines[(quarter + 3) % 4];
        return {cosine, -sine, sine, cosine, 0, 0};
    }
    const double radians = qDegreesToRadians(angleDeg);
    const double cosine = std::cos(radians);
    const double sine = std::sin(radians);
    return {cosine, -sine, sine, cosine, 0, 0};
}

/** What the half axes of an ellipse have become. */
struct HalfAxes
{
    QPointF first;
    QPointF second;
};

double length(const QPointF &p) { return std::hypot(p.x(), p.y()); }

/**
 * The half axes of what a transform makes of an ellipse: at right angles again, however the shape
 * was stretched, and as near as can be to where its own have come.
 */
HalfAxes halfAxes(const ShapeItem &ellipse)
{
    const ZTShapeBase &shape = *ellipse.getShapeBase();
    const QRectF rectMm = shape.getRect();
    const QTransform t = withoutShift(const_cast<ShapeItem &>(ellipse).getTransformParam());
    const QPointF u = t.map(QPointF(rectMm.width() / 2.0, 0.0));
    const QPointF v = t.map(QPointF(0.0, rectMm.height() / 2.0));
    const double product = QPointF::dotProduct(u, v);
    if (std::abs(product) <= 1e-12 * length(u) * length(v))
        return {u, v};
    // Points of the outline are u cos a + v sin a: its axes are where they are farthest from the
    // middle and nearest to it.
    const double spread = QPointF::dotProduct(u, u) - QPointF::dotProduct(v, v);
    double a = 0.5 * std::atan2(2.0 * product, spread);
    if (std::abs(a) > M_PI_4)
        a -= std::copysign(M_PI_2, a);
    return {u * std::cos(a) + v * std::sin(a), v * std::cos(a) - u * std::sin(a)};
}

} // namespace

QRectF outlineBoxMm(const ShapeItem &item)
{
    ZTShapeBase *shape = item.getShapeBase();
    if (shape == nullptr)
        return {};
    if (shape->isUpdate())
        shape->paint();
    const QRectF boxPx = item.boundingRect().translated(item.pos());
    return coord().getPix2MmTransform().mapRect(boxPx);
}

QRectF outlineBoxMm(const ShapeItems &items)
{
    QRectF boxMm;
    for (const ShapeItem *item : items) {
        const QRectF one = outlineBoxMm(*item);
        if (item == items.first()) {
            boxMm = one;
            continue;
        }
        // Not united by QRectF: a flat line would not count.
        boxMm.setCoords(qMin(boxMm.left(), one.left()), qMin(boxMm.top(), one.top()),
                        qMax(boxMm.right(), one.right()), qMax(boxMm.bottom(), one.bottom()));
    }
    return boxMm;
}

double wrappedDeg(double angleDeg)
{
    double wrapped = std::fmod(angleDeg, kFullTurnDeg);
    if (wrapped <= -kHalfTurnDeg)
        wrapped += kFullTurnDeg;
    else if (wrapped > kHalfTurnDeg)
        wrapped -= kFullTurnDeg;
    return wrapped + 0.0;
}

double turnDeg(const ShapeItem &item)
{
    if (const auto *line = qobject_cast<const ZTGraphicsLineItem *>(&item))
        return wrappedDeg(line->angle());
    const QTransform &t = const_cast<ShapeItem &>(item).getTransformParam();
    const double sign = isMirrored(item) ? -1.0 : 1.0;
    return wrappedDeg(qRadiansToDegrees(std::atan2(-sign * t.m12(), sign * t.m11())));
}

bool isMirrored(const ShapeItem &item)
{
    return const_cast<ShapeItem &>(item).getTransformParam().determinant() < 0.0;
}

Diameters diametersMm(const ShapeItem &ellipse)
{
    const HalfAxes axes = halfAxes(ellipse);
    return {2.0 * length(axes.first), 2.0 * length(axes.second)};
}

Placement moved(const Placement &from, const QPointF &byMm)
{
    return {from.item, from.posPx + toPx(byMm), from.transform};
}

Placement stretched(const Placement &from, const QPointF &anchorMm, double across, double down)
{
    return changed(from, anchorMm, QTransform::fromScale(across, down));
}

Placement turned(const Placement &from, const QPointF &aboutMm, double byDeg)
{
    return changed(from, aboutMm, turn(byDeg));
}

Placement withDiameters(ShapeItem &ellipse, const Diameters &diameters)
{
    const HalfAxes axes = halfAxes(ellipse);
    const double first = length(axes.first);
    const double second = length(axes.second);
    // Along the axes: turned to them, stretched, and turned back.
    const QTransform toAxes(axes.first.x() / first, axes.second.x() / second,
                            axes.first.y() / first, axes.second.y() / second, 0, 0);
    const QTransform stretch =
        QTransform::fromScale(diameters.first / 2.0 / first, diameters.second / 2.0 / second);
    return changed(ellipse, outlineBoxMm(ellipse).center(), toAxes * stretch * toAxes.inverted());
}

} // namespace studio
