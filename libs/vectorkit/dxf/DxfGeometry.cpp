#include <vectorkit/dxf/DxfGeometry_p.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace vectorkit::dxf {

namespace {

constexpr double kMostMm = 1e9;

/** Pieces of ellipses: at this angle a cubic strays by less than a ten-millionth of the radius. */
constexpr double kMostStep = M_PI / 8.0;

double dot(const QPointF &a, const QPointF &b) { return QPointF::dotProduct(a, b); }

/** Conjugate half axes of equal length at right angles. */
bool isCircle(const QPointF &a, const QPointF &b)
{
    const double size = dot(a, a);
    return size > 0.0 && std::abs(size - dot(b, b)) <= 1e-9 * size &&
           std::abs(dot(a, b)) <= 1e-9 * size;
}

} // namespace

Vec3 operator+(const Vec3 &a, const Vec3 &b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vec3 operator-(const Vec3 &a, const Vec3 &b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vec3 operator*(const Vec3 &a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }

Vec3 cross(const Vec3 &a, const Vec3 &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double length(const Vec3 &a) { return std::hypot(a.x, a.y, a.z); }

Vec3 Frame::direction(const Vec3 &local) const { return x * local.x + y * local.y + z * local.z; }

QPointF Frame::flat(const Vec3 &local) const
{
    return {origin.x + x.x * local.x + y.x * local.y + z.x * local.z,
            origin.y + x.y * local.x + y.y * local.y + z.y * local.z};
}

QPointF Frame::flatDirection(const Vec3 &local) const
{
    const Vec3 mapped = direction(local);
    return {mapped.x, mapped.y};
}

Frame operator*(const Frame &outer, const Frame &inner)
{
    return {outer.direction(inner.x), outer.direction(inner.y), outer.direction(inner.z),
            outer.map(inner.origin)};
}

Frame objectFrame(const Vec3 &extrusion)
{
    const double size = length(extrusion);
    if (!(size > 0.0) || !std::isfinite(size))
        return {};
    const Vec3 normal = extrusion * (1.0 / size);
    if (normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0)
        return {};
    const bool isSteep = std::abs(normal.x) < 1.0 / 64.0 && std::abs(normal.y) < 1.0 / 64.0;
    const Vec3 across = cross(isSteep ? Vec3{0.0, 1.0, 0.0} : Vec3{0.0, 0.0, 1.0}, normal);
    const Vec3 xAxis = across * (1.0 / length(across));
    return {xAxis, cross(normal, xAxis), normal, {}};
}

QPointF PathPen::shown(const Vec3 &point)
{
    m_at = point;
    const QPointF flat = m_frame.flat(point);
    // Written so that it fails for what is no number.
    if (!(std::abs(flat.x()) <= kMostMm && std::abs(flat.y()) <= kMostMm))
        m_sound = false;
    return flat;
}

void PathPen::moveTo(const Vec3 &point) { m_drawn = VectorPath(shown(point)); }

void PathPen::lineTo(const Vec3 &point) { m_drawn.lineTo(shown(point)); }

void PathPen::cubicTo(const Vec3 &control1, const Vec3 &control2, const Vec3 &point)
{
    const QPointF first = shown(control1);
    const QPointF second = shown(control2);
    m_drawn.cubicTo(first, second, shown(point));
}

void PathPen::ellipseTo(const Vec3 &centre, const Vec3 &a, const Vec3 &b, double from, double to)
{
    const bool isWhole = std::abs(std::abs(to - from) - 2.0 * M_PI) < 1e-12;
    ellipseTo(centre, a, b, from, to,
              isWhole ? m_at : centre + a * std::cos(to) + b * std::sin(to));
}

void PathPen::ellipseTo(const Vec3 &centre, const Vec3 &a, const Vec3 &b, double from, double to,
                        const Vec3 &end)
{
    const auto onEllipse = [&](double t) { return centre + a * std::cos(t) + b * std::sin(t); };
    const auto tangent = [&](double t) { return b * std::cos(t) - a * std::sin(t); };
    const double sweep = to - from;
    const bool isWhole = std::abs(std::abs(sweep) - 2.0 * M_PI) < 1e-12;
    const QPointF flatA = m_frame.flatDirection(a);
    const QPointF flatB = m_frame.flatDirection(b);
    if (isCircle(flatA, flatB)) {
        // With y down, a turn from a to b that looks counter-clockwise has a negative product.
        const bool runsOn = flatA.x() * flatB.y() - flatA.y() * flatB.x() < 0.0;
        const double sweepDeg = isWhole ? std::copysign(360.0, sweep) : qRadiansToDegrees(sweep);
        const QPointF middle = shown(centre);
        const QPointF flatEnd = shown(end);
        m_drawn.arcTo(middle, runsOn ? sweepDeg : -sweepDeg, isWhole ? m_drawn.end() : flatEnd);
        return;
    }
    const int steps = std::max(1, qCeil(std::abs(sweep) / kMostStep - 1e-9));
    const double step = sweep / steps;
    const double reach = 4.0 / 3.0 * std::tan(step / 4.0);
    for (int index = 0; index < steps; ++index) {
        const double t1 = from + step * index;
        const double t2 = t1 + step;
        const Vec3 point = index + 1 == steps ? end : onEllipse(t2);
        cubicTo(onEllipse(t1) + tangent(t1) * reach, point - tangent(t2) * reach, point);
    }
}

void PathPen::bulgeTo(const Vec3 &point, double bulge)
{
    const Vec3 chord = point - m_at;
    const double chordLength = std::hypot(chord.x, chord.y);
    // A flatter arc is no farther from its chord than a twenty-millionth of it.
    if (std::abs(bulge) < 1e-7 || chordLength == 0.0) {
        lineTo(point);
        return;
    }
    // From the middle of the chord to the left by (1 - bulge^2) / (4 bulge) of it.
    const double aside = (1.0 - bulge * bulge) / (4.0 * bulge);
    const Vec3 centre{m_at.x + chord.x / 2.0 - chord.y * aside,
                      m_at.y + chord.y / 2.0 + chord.x * aside, point.z};
    const Vec3 ray{m_at.x - centre.x, m_at.y - centre.y, 0.0};
    // To the end that the file says, to the last bit.
    ellipseTo(centre, ray, {-ray.y, ray.x, 0.0}, 0.0, 4.0 * std::atan(bulge), point);
}

void PathPen::close(double nearShare)
{
    const QRectF box = nearShare > 0.0 ? m_drawn.boundsMm() : QRectF();
    m_drawn.close(nearShare * std::max(box.width(), box.height()));
}

} // namespace vectorkit::dxf
