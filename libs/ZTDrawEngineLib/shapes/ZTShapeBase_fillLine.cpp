#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <ZTDrawEngineLib/shapes/ZTShapeBase_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchGeometry_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchLimits_p.h>

#include <QtCore/QVector>
#include <QtGui/QPolygonF>

#include <omp.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <new>
#include <vector>

using namespace zthatch;

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

/** What the threads of one hatch share. */
struct LevelWork
{
    std::vector<QLineF> sides;
    QRectF bounds;
    double spac = 0.0;
    int count = 0; ///< of scan lines
    std::atomic<std::int64_t> total{0};
    std::atomic<bool> isOutOfMemory{false};

    bool isOver() const
    {
        return isOutOfMemory.load(std::memory_order_relaxed) ||
               total.load(std::memory_order_relaxed) > kMostHatchLines;
    }
};

/** Appends the lines at one level. False where there is no memory for them. */
bool appendLevel(int number, LevelWork *work, std::vector<QPointF> *crossings,
                 std::vector<QLineF> *lines) noexcept
{
    try {
        const double y = work->bounds.top() + (number + 1) * work->spac;
        findCrossings({work->bounds.left(), y, work->bounds.right(), y}, work->sides, crossings);
        for (std::size_t j = 0; j + 1 < crossings->size(); j += 2)
            lines->emplace_back((*crossings)[j], (*crossings)[j + 1]);
        work->total += static_cast<std::int64_t>(crossings->size() / 2);
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }
}

/**
 * Lines of each thread. A static schedule gives each thread one run of the lines, in the order of
 * the threads: their results, one after the other, are in the order of the lines.
 *
 * Nothing is thrown inside the parallel region: an exception that left it would end the program.
 */
std::vector<std::vector<QLineF>> linesOfThreads(LevelWork *work)
{
    std::vector<std::vector<QLineF>> results(static_cast<std::size_t>(omp_get_max_threads()));
#pragma omp parallel default(shared)
    {
        std::vector<QLineF> &lines = results[static_cast<std::size_t>(omp_get_thread_num())];
        std::vector<QPointF> crossings;
#pragma omp for schedule(static)
        for (int i = 0; i < work->count; ++i) {
            if (!work->isOver() && !appendLevel(i, work, &crossings, &lines))
                work->isOutOfMemory = true;
        }
    }
    return results;
}

/**
 * Level lines over polygons, from top to bottom, each from left to right.
 *
 * The polygons are not closed: only their own sides bound the lines. The lines are the same
 * whatever the number of threads.
 */
QVector<QLineF> levelLines(const QList<QPolygonF> &polygons, double spac)
{
    LevelWork work;
    work.sides = sidesOf(polygons);
    work.bounds = boundsOf(polygons);
    work.spac = spac;
    work.count = lineCount(work.bounds, spac);
    const std::vector<std::vector<QLineF>> results = linesOfThreads(&work);
    if (work.isOutOfMemory) {
        warnOfLackingMemory();
        return {};
    }
    if (work.total > kMostHatchLines) {
        warnOfTooManyLines(spac);
        return {};
    }
    QVector<QLineF> lines;
    lines.reserve(static_cast<int>(work.total));
    for (const std::vector<QLineF> &result : results)
        std::copy(result.begin(), result.end(), std::back_inserter(lines));
    return lines;
}

} // namespace

void ZTShapeBase::fillLine()
{
    if (m_d->path.isEmpty())
        return;
    setFillLines({});
    setFillLines(levelLines(m_d->path.toSubpathPolygons(pathToMm()), m_d->fillParam.spac));
}
