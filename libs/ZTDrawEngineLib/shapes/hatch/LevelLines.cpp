#include <ZTDrawEngineLib/shapes/hatch/LevelLines_p.h>

#include <ZTDrawEngineLib/shapes/hatch/HatchGeometry_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchLimits_p.h>

#include <omp.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <vector>

namespace zthatch {

namespace {

std::vector<QLineF> sidesOf(const QList<QPolygonF> &polygons)
{
    std::vector<QLineF> sides;
    for (const QPolygonF &polygon : polygons) {
        for (int i = 0; i + 1 < polygon.size(); ++i)
            sides.emplace_back(polygon[i], polygon[i + 1]);
    }
    return sides;
}

QRectF boundsOf(const QList<QPolygonF> &polygons)
{
    QRectF bounds;
    for (const QPolygonF &polygon : polygons)
        bounds = bounds.united(polygon.boundingRect());
    return bounds;
}

/** Number of lines that a spacing gives; 0 also for one that is not a positive number. */
int lineCount(const QRectF &bounds, double spac)
{
    const double count = (bounds.bottom() - bounds.top()) / spac;
    if (!(count >= 1.0))
        return 0;
    if (count >= kMostScanLines + 1.0) {
        warnOfTooManyScanLines(spac);
        return 0;
    }
    return static_cast<int>(count);
}

/** Crossings of a scan line by growing x; what is not a number goes last. */
void findCrossings(const QLineF &scan, const std::vector<QLineF> &sides,
                   std::vector<QPointF> *crossings)
{
    crossings->clear();
    // Kept: a first crossing at exactly this point counts as met before and is left out.
    QPointF lastKept(-1.0, -1.0);
    for (const QLineF &side : sides) {
        QPointF point;
        if (scan.intersects(side, &point) != QLineF::BoundedIntersection ||
            samePoint(point, lastKept))
            continue;
        crossings->push_back(point);
        lastKept = point;
    }
    std::stable_sort(crossings->begin(), crossings->end(), [](const QPointF &a, const QPointF &b) {
        return a.x() < b.x() || (std::isnan(b.x()) && !std::isnan(a.x()));
    });
}

} // namespace

QVector<QLineF> levelLines(const QList<QPolygonF> &polygons, double spac)
{
    const std::vector<QLineF> sides = sidesOf(polygons);
    const QRectF bounds = boundsOf(polygons);
    const int count = lineCount(bounds, spac);
    // A static schedule gives each thread one run of the lines, in the order of the threads: their
    // results, one after the other, are in the order of the lines.
    std::vector<std::vector<QLineF>> results(static_cast<std::size_t>(omp_get_max_threads()));
    std::atomic<std::int64_t> total{0};
#pragma omp parallel default(shared)
    {
        std::vector<QLineF> &lines = results[static_cast<std::size_t>(omp_get_thread_num())];
        std::vector<QPointF> crossings;
#pragma omp for schedule(static)
        for (int i = 0; i < count; ++i) {
            if (total.load(std::memory_order_relaxed) > kMostHatchLines)
                continue;
            const double y = bounds.top() + (i + 1) * spac;
            findCrossings({bounds.left(), y, bounds.right(), y}, sides, &crossings);
            for (std::size_t j = 0; j + 1 < crossings.size(); j += 2)
                lines.emplace_back(crossings[j], crossings[j + 1]);
            total += static_cast<std::int64_t>(crossings.size() / 2);
        }
    }
    if (total > kMostHatchLines) {
        warnOfTooManyLines(spac);
        return {};
    }
    QVector<QLineF> lines;
    lines.reserve(static_cast<int>(total));
    for (const std::vector<QLineF> &result : results)
        std::copy(result.begin(), result.end(), std::back_inserter(lines));
    return lines;
}

} // namespace zthatch
