#include <jobkit/hatch/Clipping_p.h>

#include <cmath>

namespace jobkit {

using ClipperLib::Paths;

Paths clipPaths(const Area &area, ClipperLib::PolyFillType rule)
{
    Paths paths;
    for (const QPolygonF &outline : area) {
        ClipperLib::Path path;
        path.reserve(static_cast<size_t>(outline.size()));
        for (const QPointF &point : outline) {
            const bool isInRange = std::abs(point.x()) <= kMostCoordinateMm &&
                                   std::abs(point.y()) <= kMostCoordinateMm;
            if (!isInRange) // no number lies in no range
                return {};
            path.emplace_back(std::llround(point.x() * kClipStepsMm),
                              std::llround(point.y() * kClipStepsMm));
        }
        paths.push_back(std::move(path));
    }
    // Strictly simple outlines would take a time that grows with the square of their points.
    ClipperLib::Clipper clipper;
    clipper.AddPaths(paths, ClipperLib::ptSubject, true);
    Paths united;
    clipper.Execute(ClipperLib::ctUnion, united, rule, rule);
    return united;
}

QPolygonF closedPolygon(const ClipperLib::Path &path)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<int>(path.size()) + 1);
    for (const ClipperLib::IntPoint &point : path)
        polygon.append({double(point.X) / kClipStepsMm, double(point.Y) / kClipStepsMm});
    if (!polygon.isEmpty())
        polygon.append(polygon.first());
    return polygon;
}

Area areaOf(const Paths &paths)
{
    Area area;
    for (const ClipperLib::Path &path : paths)
        area.append(closedPolygon(path));
    return area;
}

Paths movedInward(const Paths &paths, double distanceMm, double arcToleranceMm)
{
    ClipperLib::ClipperOffset offset(2.0, arcToleranceMm * kClipStepsMm);
    offset.AddPaths(paths, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    Paths moved;
    offset.Execute(moved, -distanceMm * kClipStepsMm);
    return moved;
}

Area insetArea(const Area &area, double insetMm)
{
    if (!(insetMm >= 0.0) || insetMm > kMostCoordinateMm)
        return {};
    const Paths paths = clipPaths(area, ClipperLib::pftEvenOdd);
    return areaOf(insetMm > 0.0 ? movedInward(paths, insetMm, 0.001) : paths);
}

Area unitedArea(const Area &area, Qt::FillRule rule)
{
    return areaOf(
        clipPaths(area, rule == Qt::WindingFill ? ClipperLib::pftNonZero : ClipperLib::pftEvenOdd));
}

} // namespace jobkit
