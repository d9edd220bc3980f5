#include <studio/paths/PathOps.h>

#include <hostkit/import/DrawingImport.h>
#include <hostkit/items/GraphicItems.h>

#include <vectorkit/clean/PathFitting.h>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

using vectorkit::OutlineOp;
using vectorkit::VectorPath;

/** Outlines nearer to each other than this are one. */
constexpr double kSameMm = 0.001;

double areaOf(const QVector<VectorPath> &polylines)
{
    double twice = 0.0;
    for (const VectorPath &path : polylines) {
        path.forEach([&](const VectorPath::Piece &piece) {
            twice += piece.from.x() * piece.to.y() - piece.to.x() * piece.from.y();
        });
    }
    return std::abs(twice) / 2.0;
}

/** Whether two closed outlines are the same line: there is next to nothing between them. */
bool isSame(const VectorPath &a, const VectorPath &b)
{
    const QRectF boxA = a.boundsMm();
    const QRectF boxB = b.boundsMm();
    const auto isNear = [](double one, double other) { return std::abs(one - other) <= kSameMm; };
    if (!isNear(boxA.left(), boxB.left()) || !isNear(boxA.right(), boxB.right()) ||
        !isNear(boxA.top(), boxB.top()) || !isNear(boxA.bottom(), boxB.bottom()))
        return false;
    const QVector<VectorPath> between = vectorkit::combinedOutlines(
        OutlineOp::Exclusion, {a}, {b}, Qt::OddEvenFill, kOpToleranceMm);
    return areaOf(between) <= a.lengthMm() * kOpToleranceMm;
}

} // namespace

ShapeOutlines outlinesApart(const ShapeItem &item)
{
    ShapeOutlines apart;
    const QVector<VectorPath> paths = hostkit::outlinesOf(item);
    for (const VectorPath &path : paths)
        (path.isClosed() ? apart.closed : apart.open).append(path);
    return apart;
}

QVector<VectorPath> areasTogether(OutlineOp op, const QVector<QVector<VectorPath>> &areas)
{
    QVector<VectorPath> together;
    for (int at = 0; at < areas.size(); ++at) {
        // Each under its own rule; from then on all run as a winding fill wants them.
        const QVector<VectorPath> area =
            vectorkit::weldedOutlines(areas[at], Qt::OddEvenFill, kOpToleranceMm);
        together = at == 0 ? area
                           : vectorkit::combinedOutlines(op, together, area, Qt::WindingFill,
                                                         kOpToleranceMm);
    }
    // Of hundreds of short lines few arcs, which people can edit.
    for (VectorPath &path : together)
        path = vectorkit::arcFittedPath(path, kOpToleranceMm);
    return together;
}

QVector<VectorPath> weldedAreas(const QVector<VectorPath> &closed)
{
    QVector<VectorPath> once;
    for (const VectorPath &outline : closed) {
        const bool isKnown = std::any_of(once.begin(), once.end(), [&](const VectorPath &known) {
            return isSame(known, outline);
        });
        if (!isKnown)
            once.append(outline);
    }
    QVector<QVector<VectorPath>> areas;
    for (const QVector<int> &outline : hostkit::outlinesWithHoles(once)) {
        QVector<VectorPath> area;
        for (const int index : outline)
            area.append(once[index]);
        areas.append(area);
    }
    return areasTogether(OutlineOp::Union, areas);
}

QVector<QVector<VectorPath>> pathsApart(const QVector<VectorPath> &paths)
{
    QVector<VectorPath> closed;
    QVector<QVector<VectorPath>> parts;
    for (const VectorPath &path : paths) {
        if (path.isClosed())
            closed.append(path);
    }
    const QVector<QVector<int>> outlines = hostkit::outlinesWithHoles(closed);
    for (const QVector<int> &outline : outlines) {
        QVector<VectorPath> part;
        for (const int index : outline)
            part.append(closed[index]);
        parts.append(part);
    }
    for (const VectorPath &path : paths) {
        if (!path.isClosed())
            parts.append(QVector<VectorPath>{path});
    }
    if (parts.size() > 1)
        return parts;
    parts.clear();
    for (const VectorPath &path : paths)
        parts.append(QVector<VectorPath>{path});
    return parts;
}

} // namespace studio
