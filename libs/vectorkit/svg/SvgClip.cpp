#include <vectorkit/svg/SvgClip_p.h>

#include <QtGui/QPolygonF>

#include <cmath>

#include <polyclipping/clipper.hpp>

namespace vectorkit {

namespace {

/** Counted in millionths of a millimetre: a coordinate of 1e9 mm stays well within 62 bits. */
constexpr double kSteps = 1e6;
constexpr double kToleranceMm = 0.002;

ClipperLib::IntPoint toSteps(const QPointF &point)
{
    return {ClipperLib::cInt(std::llround(point.x() * kSteps)),
            ClipperLib::cInt(std::llround(point.y() * kSteps))};
}

ClipperLib::Path toSteps(const QPolygonF &polygon)
{
    ClipperLib::Path path;
    path.reserve(std::size_t(polygon.size()));
    for (const QPointF &point : polygon)
        path.push_back(toSteps(point));
    return path;
}

QPolygonF toMm(const ClipperLib::Path &path)
{
    QPolygonF polygon;
    polygon.reserve(int(path.size()));
    for (const ClipperLib::IntPoint &point : path)
        polygon.append(QPointF(double(point.X) / kSteps, double(point.Y) / kSteps));
    return polygon;
}

ClipperLib::PolyFillType ruleOf(Qt::FillRule rule)
{
    return rule == Qt::OddEvenFill ? ClipperLib::pftEvenOdd : ClipperLib::pftNonZero;
}

/** The clipper throws on coordinates out of its range: those are checked before it sees them. */
QVector<QPolygonF> combined(ClipperLib::ClipType type, const QVector<QPolygonF> &subject,
                            Qt::FillRule subjectRule, const QVector<QPolygonF> &clip)
{
    ClipperLib::Clipper clipper;
    for (const QPolygonF &polygon : subject)
        clipper.AddPath(toSteps(polygon), ClipperLib::ptSubject, true);
    for (const QPolygonF &polygon : clip)
        clipper.AddPath(toSteps(polygon), ClipperLib::ptClip, true);
    ClipperLib::Paths result;
    clipper.Execute(type, result, ruleOf(subjectRule), ClipperLib::pftEvenOdd);
    QVector<QPolygonF> polygons;
    for (const ClipperLib::Path &path : result)
        polygons.append(toMm(path));
    return polygons;
}

QVector<QPolygonF> flattened(const QVector<VectorPath> &paths)
{
    QVector<QPolygonF> polygons;
    for (const VectorPath &path : paths)
        polygons.append(path.flattened(kToleranceMm));
    return polygons;
}

} // namespace

void SvgClip::settle()
{
    m_bounds = QRectF();
    for (const QPolygonF &polygon : qAsConst(m_polygons))
        m_bounds |= polygon.boundingRect();
    m_isRectangle = m_polygons.size() == 1 && m_polygons.first().size() == 4;
    if (!m_isRectangle)
        return;
    for (int index = 0; index < 4; ++index) {
        const QPointF side = m_polygons.first()[(index + 1) % 4] - m_polygons.first()[index];
        m_isRectangle = m_isRectangle && (side.x() == 0.0 || side.y() == 0.0);
    }
}

void SvgClip::add(const QVector<VectorPath> &outlines, Qt::FillRule rule)
{
    m_polygons += combined(ClipperLib::ctUnion, flattened(outlines), rule, {});
    m_polygons = combined(ClipperLib::ctUnion, m_polygons, Qt::WindingFill, {});
    settle();
}

void SvgClip::intersect(const SvgClip &other)
{
    m_polygons =
        combined(ClipperLib::ctIntersection, m_polygons, Qt::OddEvenFill, other.m_polygons);
    settle();
}

SvgClip::Cover SvgClip::coverOf(const QRectF &box) const
{
    // Not intersects(): a straight line has a box without a width.
    if (m_polygons.isEmpty() || box.right() < m_bounds.left() || box.left() > m_bounds.right() ||
        box.bottom() < m_bounds.top() || box.top() > m_bounds.bottom())
        return Cover::None;
    // What runs along the edge of a rectangle is seen, rounding or not.
    const QRectF wide = m_bounds.adjusted(-1e-6, -1e-6, 1e-6, 1e-6);
    const bool isInside = box.left() >= wide.left() && box.right() <= wide.right() &&
                          box.top() >= wide.top() && box.bottom() <= wide.bottom();
    return m_isRectangle && isInside ? Cover::Whole : Cover::Part;
}

QVector<VectorPath> SvgClip::lines(const QVector<VectorPath> &paths) const
{
    ClipperLib::Clipper clipper;
    for (const QPolygonF &polygon : flattened(paths))
        clipper.AddPath(toSteps(polygon), ClipperLib::ptSubject, false);
    for (const QPolygonF &polygon : m_polygons)
        clipper.AddPath(toSteps(polygon), ClipperLib::ptClip, true);
    ClipperLib::PolyTree tree;
    clipper.Execute(ClipperLib::ctIntersection, tree, ClipperLib::pftEvenOdd,
                    ClipperLib::pftEvenOdd);
    ClipperLib::Paths seen;
    ClipperLib::OpenPathsFromPolyTree(tree, seen);
    QVector<VectorPath> result;
    for (const ClipperLib::Path &path : seen) {
        const QPolygonF polygon = toMm(path);
        result.append(VectorPath::polyline(polygon, polygon.isClosed()));
    }
    return result;
}

QVector<VectorPath> SvgClip::area(const QVector<VectorPath> &outlines, Qt::FillRule rule) const
{
    QVector<VectorPath> result;
    const QVector<QPolygonF> seen =
        combined(ClipperLib::ctIntersection, flattened(outlines), rule, m_polygons);
    for (const QPolygonF &polygon : seen)
        result.append(VectorPath::polyline(polygon, true));
    return result;
}

} // namespace vectorkit
