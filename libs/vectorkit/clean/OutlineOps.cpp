#include <vectorkit/clean/OutlineOps.h>

#include <QtGui/QPolygonF>

#include <polyclipping/clipper.hpp>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

namespace cl = ClipperLib;

/** Whole numbers a millimetre: with this, drawings up to ten metres take the quick arithmetic. */
constexpr double kGrid = 1e5;

constexpr double kFarthestMm = 1e9;

cl::IntPoint toGrid(const QPointF &point)
{
    const auto whole = [](double mm) {
        return static_cast<cl::cInt>(
            std::llround(std::clamp(mm, -kFarthestMm, kFarthestMm) * kGrid));
    };
    return {whole(point.x()), whole(point.y())};
}

cl::Paths toGrid(const QVector<VectorPath> &outlines, double toleranceMm)
{
    cl::Paths paths;
    paths.reserve(static_cast<std::size_t>(outlines.size()));
    for (const VectorPath &outline : outlines) {
        cl::Path path;
        const QPolygonF polygon = outline.flattened(toleranceMm);
        path.reserve(static_cast<std::size_t>(polygon.size()));
        for (const QPointF &point : polygon)
            path.push_back(toGrid(point));
        if (path.size() >= 3)
            paths.push_back(std::move(path));
    }
    return paths;
}

QVector<VectorPath> fromGrid(const cl::Paths &paths)
{
    QVector<VectorPath> outlines;
    outlines.reserve(static_cast<int>(paths.size()));
    for (const cl::Path &path : paths) {
        QVector<QPointF> points;
        points.reserve(static_cast<int>(path.size()) + 1);
        // y runs down here: reversed, what turns left there turns left on the screen.
        for (auto point = path.rbegin(); point != path.rend(); ++point)
            points.append(QPointF(double(point->X) / kGrid, double(point->Y) / kGrid));
        if (points.size() >= 3)
            outlines.append(VectorPath::polyline(points, true));
    }
    return outlines;
}

cl::PolyFillType fillOf(Qt::FillRule rule)
{
    return rule == Qt::WindingFill ? cl::pftNonZero : cl::pftEvenOdd;
}

cl::ClipType typeOf(OutlineOp op)
{
    switch (op) {
    case OutlineOp::Union:
        return cl::ctUnion;
    case OutlineOp::Difference:
        return cl::ctDifference;
    case OutlineOp::Intersection:
        return cl::ctIntersection;
    case OutlineOp::Exclusion:
        break;
    }
    return cl::ctXor;
}

cl::Paths combined(OutlineOp op, const cl::Paths &first, const cl::Paths &second, Qt::FillRule rule)
{
    cl::Clipper clipper;
    clipper.StrictlySimple(true);
    cl::Paths result;
    try { // it throws for numbers out of its range
        clipper.AddPaths(first, cl::ptSubject, true);
        clipper.AddPaths(second, cl::ptClip, true);
        clipper.Execute(typeOf(op), result, fillOf(rule), fillOf(rule));
    } catch (const cl::clipperException &) {
        result.clear();
    }
    return result;
}

cl::JoinType joinOf(OffsetCorner corner)
{
    switch (corner) {
    case OffsetCorner::Miter:
        return cl::jtMiter;
    case OffsetCorner::Square:
        return cl::jtSquare;
    case OffsetCorner::Round:
        break;
    }
    return cl::jtRound;
}

} // namespace

QVector<VectorPath> combinedOutlines(OutlineOp op, const QVector<VectorPath> &first,
                                     const QVector<VectorPath> &second, Qt::FillRule rule,
                                     double toleranceMm)
{
    return fromGrid(combined(op, toGrid(first, toleranceMm), toGrid(second, toleranceMm), rule));
}

QVector<VectorPath> weldedOutlines(const QVector<VectorPath> &outlines, Qt::FillRule rule,
                                   double toleranceMm)
{
    return combinedOutlines(OutlineOp::Union, outlines, {}, rule, toleranceMm);
}

QVector<VectorPath> offsetOutlines(const QVector<VectorPath> &outlines, Qt::FillRule rule,
                                   double distanceMm, OffsetCorner corner, double toleranceMm)
{
    const cl::Paths area = combined(OutlineOp::Union, toGrid(outlines, toleranceMm), {}, rule);
    constexpr double kMiterLimit = 4.0;
    cl::ClipperOffset offset(kMiterLimit, std::max(toleranceMm * kGrid, 1.0));
    cl::Paths result;
    try {
        offset.AddPaths(area, joinOf(corner), cl::etClosedPolygon);
        offset.Execute(result, std::clamp(distanceMm, -kFarthestMm, kFarthestMm) * kGrid);
    } catch (const cl::clipperException &) {
        result.clear();
    }
    return fromGrid(result);
}

} // namespace vectorkit
