#include <vectorkit/VectorPath.h>

#include <QtCore/QtMath>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vectorkit {

namespace {

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(b.x() - a.x(), b.y() - a.y());
}

/** `point` turned about `centre`; positive is counter-clockwise on the screen, where y runs down.
 */
QPointF turned(const QPointF &point, const QPointF &centre, double angleDeg)
{
    const double angle = qDegreesToRadians(angleDeg);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const QPointF ray = point - centre;
    return centre + QPointF(ray.x() * cosine + ray.y() * sine, ray.y() * cosine - ray.x() * sine);
}

QPointF onCubic(const VectorPath::Piece &piece, double t)
{
    const double s = 1.0 - t;
    return piece.from * (s * s * s) + piece.control1 * (3.0 * s * s * t) +
           piece.control2 * (3.0 * s * t * t) + piece.to * (t * t * t);
}

/** The bound of the chord error falls with the square of the number of equal steps. */
int cubicSteps(const VectorPath::Piece &piece, double toleranceMm)
{
    const QPointF bend1 = piece.from - 2.0 * piece.control1 + piece.control2;
    const QPointF bend2 = piece.control1 - 2.0 * piece.control2 + piece.to;
    const double bend =
        6.0 * std::max(std::hypot(bend1.x(), bend1.y()), std::hypot(bend2.x(), bend2.y()));
    const double steps = std::ceil(std::sqrt(bend / (8.0 * toleranceMm)));
    return static_cast<int>(std::clamp(steps, 1.0, 10000.0));
}

int arcSteps(const VectorPath::Piece &piece, double toleranceMm)
{
    const double radius = distance(piece.control1, piece.from);
    const double sweep = qDegreesToRadians(std::abs(piece.sweepDeg));
    // A chord over the angle a stands off its arc by r (1 - cos(a / 2)).
    const double angle = 2.0 * std::acos(std::clamp(1.0 - toleranceMm / radius, -1.0, 1.0));
    const double steps = angle > 0.0 ? std::ceil(sweep / angle - 1e-9) : 10000.0;
    return static_cast<int>(std::clamp(steps, std::max(1.0, std::ceil(sweep / M_PI_2)), 10000.0));
}

/**
 * The arc as cubics of at most an eighth turn each: they keep within 4.3 millionths of the radius,
 * where those of a quarter turn would leave it by 0.3 thousandths.
 */
template <class Take>
void arcAsCubics(const VectorPath::Piece &arc, Take take)
{
    const int eighths = std::max(1, qCeil(std::abs(arc.sweepDeg) / 45.0 - 1e-9));
    const double stepDeg = arc.sweepDeg / eighths;
    const double reach = 4.0 / 3.0 * std::tan(qDegreesToRadians(stepDeg) / 4.0);
    QPointF from = arc.from;
    for (int step = 1; step <= eighths; ++step) {
        const QPointF to =
            step == eighths ? arc.to : turned(arc.from, arc.control1, stepDeg * step);
        const QPointF ray1 = from - arc.control1;
        const QPointF ray2 = to - arc.control1;
        // Along the tangent, which counter-clockwise on the screen is (y, -x) of the ray.
        take(from + QPointF(ray1.y(), -ray1.x()) * reach, to - QPointF(ray2.y(), -ray2.x()) * reach,
             to);
        from = to;
    }
}

struct Box
{
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    explicit Box(const QPointF &first)
        : left(first.x()), top(first.y()), right(first.x()), bottom(first.y())
    {
    }

    void add(const QPointF &point)
    {
        left = std::min(left, point.x());
        right = std::max(right, point.x());
        top = std::min(top, point.y());
        bottom = std::max(bottom, point.y());
    }
};

/** Where one coordinate of a cubic turns round. */
template <class Found>
void cubicTurns(double a, double b, double c, double d, Found found)
{
    const double square = 3.0 * (d - 3.0 * c + 3.0 * b - a);
    const double linear = 6.0 * (a - 2.0 * b + c);
    const double constant = 3.0 * (b - a);
    if (std::abs(square) < 1e-12 * (std::abs(linear) + std::abs(constant))) {
        if (linear != 0.0)
            found(-constant / linear);
        return;
    }
    const double discriminant = linear * linear - 4.0 * square * constant;
    if (discriminant < 0.0)
        return;
    const double root = std::sqrt(discriminant);
    found((-linear + root) / (2.0 * square));
    found((-linear - root) / (2.0 * square));
}

void addCubic(const VectorPath::Piece &piece, Box *box)
{
    const auto take = [&](double t) {
        if (t > 0.0 && t < 1.0)
            box->add(onCubic(piece, t));
    };
    cubicTurns(piece.from.x(), piece.control1.x(), piece.control2.x(), piece.to.x(), take);
    cubicTurns(piece.from.y(), piece.control1.y(), piece.control2.y(), piece.to.y(), take);
}

void addArc(const VectorPath::Piece &arc, Box *box)
{
    const QPointF &centre = arc.control1;
    const double radius = distance(centre, arc.from);
    const double startDeg =
        qRadiansToDegrees(std::atan2(centre.y() - arc.from.y(), arc.from.x() - centre.x()));
    const double low = std::min(startDeg, startDeg + arc.sweepDeg);
    const double high = std::max(startDeg, startDeg + arc.sweepDeg);
    for (int quarter = qCeil(low / 90.0); quarter * 90.0 <= high; ++quarter) {
        static const QPointF kAxes[] = {{1.0, 0.0}, {0.0, -1.0}, {-1.0, 0.0}, {0.0, 1.0}};
        box->add(centre + radius * kAxes[((quarter % 4) + 4) % 4]);
    }
}

/**
 * Length by halving until the control points hardly leave the chord: the curve is never shorter
 * than the one and never longer than the way along the other.
 */
double cubicLength(const QPointF &a, const QPointF &b, const QPointF &c, const QPointF &d,
                   int depth)
{
    constexpr int kDeepest = 16;
    constexpr int kAlwaysHalved = 3;
    const double chord = distance(a, d);
    const double around = distance(a, b) + distance(b, c) + distance(c, d);
    const bool isStraight = depth >= kAlwaysHalved && around - chord <= 1e-4 * around;
    if (isStraight || depth == kDeepest)
        return (chord + around) / 2.0;
    const QPointF ab = (a + b) / 2.0;
    const QPointF bc = (b + c) / 2.0;
    const QPointF cd = (c + d) / 2.0;
    const QPointF abc = (ab + bc) / 2.0;
    const QPointF bcd = (bc + cd) / 2.0;
    const QPointF middle = (abc + bcd) / 2.0;
    return cubicLength(a, ab, abc, middle, depth + 1) + cubicLength(middle, bcd, cd, d, depth + 1);
}

bool isSimilarity(const QTransform &transform)
{
    if (transform.type() >= QTransform::TxProject)
        return false;
    const double size = std::hypot(transform.m11(), transform.m12());
    const double across = std::hypot(transform.m21(), transform.m22());
    const double skew = transform.m11() * transform.m21() + transform.m12() * transform.m22();
    return std::abs(size - across) <= 1e-12 * size && std::abs(skew) <= 1e-12 * size * across;
}

} // namespace

VectorPath VectorPath::polyline(const QVector<QPointF> &pointsMm, bool closed)
{
    VectorPath path;
    path.m_points = pointsMm;
    if (closed)
        path.close();
    return path;
}

VectorPath VectorPath::circle(const QPointF &centreMm, double radiusMm)
{
    VectorPath path(centreMm + QPointF(radiusMm, 0.0));
    path.arcAbout(centreMm, 360.0);
    path.close();
    return path;
}

void VectorPath::needKinds()
{
    if (m_kinds.isEmpty())
        m_kinds.fill(PieceKind::Line, std::max(0, m_points.size() - 1));
}

void VectorPath::lineTo(const QPointF &endMm)
{
    if (!m_kinds.isEmpty())
        m_kinds.append(PieceKind::Line);
    m_points.append(endMm);
}

void VectorPath::cubicTo(const QPointF &control1Mm, const QPointF &control2Mm, const QPointF &endMm)
{
    needKinds();
    m_kinds.append(PieceKind::Cubic);
    m_points << control1Mm << control2Mm << endMm;
}

void VectorPath::arcAbout(const QPointF &centreMm, double sweepDeg)
{
    const bool isWhole = std::abs(sweepDeg) >= 360.0;
    const double sweep = isWhole ? std::copysign(360.0, sweepDeg) : sweepDeg;
    const QPointF from = end();
    needKinds();
    m_kinds.append(PieceKind::Arc);
    m_points << centreMm << QPointF(sweep, 0.0) << (isWhole ? from : turned(from, centreMm, sweep));
}

void VectorPath::arcTo(const QPointF &centreMm, double sweepDeg, const QPointF &endMm)
{
    arcAbout(centreMm, sweepDeg);
    m_points.last() = endMm;
}

void VectorPath::setEnd(const QPointF &endMm)
{
    if (isEmpty())
        return;
    if (!m_kinds.isEmpty() && m_kinds.last() == PieceKind::Arc)
        lineTo(endMm);
    else
        m_points.last() = endMm;
}

void VectorPath::append(const VectorPath &other)
{
    if (other.isEmpty())
        return;
    if (m_points.isEmpty())
        m_points.append(other.start());
    if (!m_kinds.isEmpty() || !other.m_kinds.isEmpty()) {
        needKinds();
        if (other.m_kinds.isEmpty())
            m_kinds.insert(m_kinds.size(), other.pieceCount(), PieceKind::Line);
        else
            m_kinds += other.m_kinds;
    }
    std::copy(other.m_points.begin() + 1, other.m_points.end(), std::back_inserter(m_points));
}

bool VectorPath::operator==(const VectorPath &other) const
{
    const auto isSame = [](const QPointF &a, const QPointF &b) {
        return a.x() == b.x() && a.y() == b.y(); // QPointF's own comparison is a rough one
    };
    return m_closed == other.m_closed && m_kinds == other.m_kinds &&
           std::equal(m_points.begin(), m_points.end(), other.m_points.begin(),
                      other.m_points.end(), isSame);
}

void VectorPath::close()
{
    if (m_points.isEmpty())
        return;
    const QPointF gap = m_points.last() - m_points.first();
    if (gap.x() != 0.0 || gap.y() != 0.0) // exactly: QPointF's own comparison is a rough one
        lineTo(m_points.first());
    m_closed = true;
}

void VectorPath::close(double withinMm)
{
    if (pieceCount() > 0 && distance(m_points.first(), m_points.last()) <= withinMm)
        m_points.last() = m_points.first();
    close();
}

int VectorPath::pieceCount() const
{
    return m_kinds.isEmpty() ? std::max(0, m_points.size() - 1) : m_kinds.size();
}

QPointF VectorPath::end() const { return m_points.isEmpty() ? QPointF() : m_points.last(); }

const QVector<QPointF> &VectorPath::polylinePoints() const
{
    static const QVector<QPointF> kNone;
    return isPolyline() ? m_points : kNone;
}

QPolygonF VectorPath::flattened(double toleranceMm) const
{
    if (isPolyline())
        return QPolygonF(m_points);
    QPolygonF polygon;
    polygon.append(start());
    forEach([&](const Piece &piece) {
        if (piece.kind == PieceKind::Cubic) {
            const int steps = cubicSteps(piece, toleranceMm);
            for (int step = 1; step < steps; ++step)
                polygon.append(onCubic(piece, double(step) / steps));
        } else if (piece.kind == PieceKind::Arc) {
            const int steps = arcSteps(piece, toleranceMm);
            for (int step = 1; step < steps; ++step)
                polygon.append(turned(piece.from, piece.control1, piece.sweepDeg * step / steps));
        }
        polygon.append(piece.to);
    });
    return polygon;
}

QRectF VectorPath::boundsMm() const
{
    Box box(start());
    forEach([&](const Piece &piece) {
        box.add(piece.to);
        if (piece.kind == PieceKind::Cubic)
            addCubic(piece, &box);
        else if (piece.kind == PieceKind::Arc)
            addArc(piece, &box);
    });
    return QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom));
}

double VectorPath::lengthMm() const
{
    double length = 0.0;
    forEach([&](const Piece &piece) {
        if (piece.kind == PieceKind::Line)
            length += distance(piece.from, piece.to);
        else if (piece.kind == PieceKind::Cubic)
            length += cubicLength(piece.from, piece.control1, piece.control2, piece.to, 0);
        else
            length +=
                distance(piece.control1, piece.from) * qDegreesToRadians(std::abs(piece.sweepDeg));
    });
    return length;
}

VectorPath VectorPath::reversed() const
{
    VectorPath path;
    path.m_closed = m_closed;
    path.m_points.reserve(m_points.size());
    path.m_kinds.reserve(m_kinds.size());
    std::reverse_copy(m_points.begin(), m_points.end(), std::back_inserter(path.m_points));
    std::reverse_copy(m_kinds.begin(), m_kinds.end(), std::back_inserter(path.m_kinds));
    // An arc's centre and sweep have changed places, and the sweep its sense.
    int at = 1;
    for (const PieceKind kind : qAsConst(path.m_kinds)) {
        if (kind == PieceKind::Arc) {
            std::swap(path.m_points[at], path.m_points[at + 1]);
            path.m_points[at + 1].rx() *= -1.0;
        }
        at += kind == PieceKind::Line ? 1 : 3;
    }
    return path;
}

VectorPath VectorPath::transformed(const QTransform &transform) const
{
    if (isPolyline()) {
        VectorPath path;
        path.m_closed = m_closed;
        path.m_points.reserve(m_points.size());
        for (const QPointF &point : m_points)
            path.m_points.append(transform.map(point));
        return path;
    }
    const bool keepsArcs = isSimilarity(transform);
    const bool isMirrored = transform.determinant() < 0.0;
    VectorPath path(transform.map(start()));
    forEach([&](const Piece &piece) {
        if (piece.kind == PieceKind::Line) {
            path.lineTo(transform.map(piece.to));
        } else if (piece.kind == PieceKind::Cubic) {
            path.cubicTo(transform.map(piece.control1), transform.map(piece.control2),
                         transform.map(piece.to));
        } else if (keepsArcs) {
            path.arcAbout(transform.map(piece.control1),
                          isMirrored ? -piece.sweepDeg : piece.sweepDeg);
            path.m_points.last() = transform.map(piece.to);
        } else {
            arcAsCubics(piece, [&](const QPointF &c1, const QPointF &c2, const QPointF &to) {
                path.cubicTo(transform.map(c1), transform.map(c2), transform.map(to));
            });
        }
    });
    path.m_closed = m_closed;
    return path;
}

void VectorPath::addTo(QPainterPath *path) const
{
    if (isEmpty())
        return;
    path->moveTo(start());
    forEach([&](const Piece &piece) {
        if (piece.kind == PieceKind::Line)
            path->lineTo(piece.to);
        else if (piece.kind == PieceKind::Cubic)
            path->cubicTo(piece.control1, piece.control2, piece.to);
        else
            arcAsCubics(piece, [&](const QPointF &c1, const QPointF &c2, const QPointF &to) {
                path->cubicTo(c1, c2, to);
            });
    });
    if (m_closed)
        path->closeSubpath();
}

} // namespace vectorkit
