#include <ZTDrawEngineLib/common/ZTCurveTolerance.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kMostChords = 10000.0;

/** With so many curves to an ellipse they are 7e-8 of its radius away from it. */
constexpr int kEllipseCurves = 16;

double g_toleranceMm = 0.0;
double g_enlargement = 1.0;

/** The four points of a curve, after the transform. */
using Curve = std::array<QPointF, 4>;

double lengthOf(const QPointF &vector) { return std::hypot(vector.x(), vector.y()); }

/**
 * Chords of equal parameter steps within a tolerance of the curve.
 *
 * Source: a chord over a step h is at most h * h / 8 times the largest second derivative away, and
 * that of a cubic is 6 times the larger of its two second differences.
 */
int chordsOf(const Curve &curve, double tolerance)
{
    const double bend = 6.0 * std::max(lengthOf(curve[0] - 2.0 * curve[1] + curve[2]),
                                       lengthOf(curve[1] - 2.0 * curve[2] + curve[3]));
    const double chords = std::ceil(std::sqrt(bend / (8.0 * tolerance)));
    return std::isfinite(chords) ? static_cast<int>(std::clamp(chords, 1.0, kMostChords)) : 1;
}

QPointF pointAt(const Curve &curve, double t)
{
    const double s = 1.0 - t;
    return curve[0] * (s * s * s) + curve[1] * (3.0 * s * s * t) + curve[2] * (3.0 * s * t * t) +
           curve[3] * (t * t * t);
}

void appendCurve(const Curve &curve, double tolerance, QPolygonF *polygon)
{
    const int chords = chordsOf(curve, tolerance);
    for (int i = 1; i < chords; ++i)
        *polygon << pointAt(curve, static_cast<double>(i) / chords);
    *polygon << curve[3];
}

/** A point of an ellipse, or of the tangent there, by the lengths of its half axes. */
QPointF turned(const QSizeF &half, double angleRad, double along, double across)
{
    return {half.width() * (along * std::cos(angleRad) - across * std::sin(angleRad)),
            half.height() * (along * std::sin(angleRad) + across * std::cos(angleRad))};
}

QList<QPolygonF> flattened(const QPainterPath &path, const QTransform &matrix, double tolerance)
{
    QList<QPolygonF> polygons;
    QPolygonF current;
    const auto finish = [&] {
        if (current.size() > 1)
            polygons << current;
        current.clear();
    };
    const auto pointOf = [&](int index) { return matrix.map(QPointF(path.elementAt(index))); };
    for (int i = 0; i < path.elementCount(); ++i) {
        if (path.elementAt(i).isMoveTo())
            finish();
        if (!path.elementAt(i).isCurveTo()) {
            current << pointOf(i);
            continue;
        }
        appendCurve({pointOf(i - 1), pointOf(i), pointOf(i + 1), pointOf(i + 2)}, tolerance,
                    &current);
        i += 2;
    }
    finish();
    return polygons;
}

} // namespace

double ZTCurveTolerance::toleranceMm() { return g_toleranceMm; }

void ZTCurveTolerance::setToleranceMm(double mm)
{
    g_toleranceMm = std::isfinite(mm) && mm > 0.0 ? mm : 0.0;
}

QList<QPolygonF> ZTCurveTolerance::polygons(const QPainterPath &path, const QTransform &matrix,
                                            double unitsPerMm)
{
    const double tolerance = g_toleranceMm * std::abs(unitsPerMm);
    if (!(tolerance > 0.0) || path.isEmpty())
        return path.toSubpathPolygons(matrix);
    return flattened(path, matrix, tolerance);
}

QPainterPath ZTCurveTolerance::ellipse(const QRectF &rect)
{
    QPainterPath path;
    if (g_toleranceMm == 0.0 || rect.isNull()) {
        path.addEllipse(rect);
        return path;
    }
    const QSizeF half = rect.size() / 2.0;
    const double step = 2.0 * kPi / kEllipseCurves;
    const double reach = 4.0 / 3.0 * std::tan(step / 4.0);
    const auto at = [&](double angleRad, double across) {
        return rect.center() + turned(half, angleRad, 1.0, across);
    };
    path.moveTo(at(0.0, 0.0));
    for (int i = 0; i < kEllipseCurves; ++i) {
        const bool isLast = i + 1 == kEllipseCurves;
        const double from = i * step;
        const double to = isLast ? 0.0 : from + step;
        path.cubicTo(at(from, reach), at(to, -reach), at(to, 0.0));
    }
    return path;
}

double ZTCurveTolerance::arcChords(double radiusMm, double sweepRad, double least)
{
    const double radius = std::abs(radiusMm) * g_enlargement;
    if (!(g_toleranceMm > 0.0) || !(radius > g_toleranceMm) || !std::isfinite(radius) ||
        !std::isfinite(sweepRad))
        return least;
    // The arrow over a chord of the angle a is r * (1 - cos(a / 2)).
    const double largestStep = 2.0 * std::acos(1.0 - g_toleranceMm / radius);
    const double chords = std::ceil(std::abs(sweepRad) / largestStep);
    return std::max(least, std::min(chords, kMostChords));
}

// Source: the larger singular value of the transform's linear part.
double ZTCurveTolerance::largestScale(const QTransform &transform)
{
    const double sum = transform.m11() * transform.m11() + transform.m12() * transform.m12() +
                       transform.m21() * transform.m21() + transform.m22() * transform.m22();
    const double area = transform.m11() * transform.m22() - transform.m12() * transform.m21();
    const double rest = std::max(0.0, sum * sum - 4.0 * area * area);
    const double scale = std::sqrt((sum + std::sqrt(rest)) / 2.0);
    return std::isfinite(scale) ? scale : 1.0;
}

ZTCurveTolerance::Enlarged::Enlarged(const QTransform &later) : m_former(g_enlargement)
{
    g_enlargement = largestScale(later);
}

ZTCurveTolerance::Enlarged::~Enlarged() { g_enlargement = m_former; }
