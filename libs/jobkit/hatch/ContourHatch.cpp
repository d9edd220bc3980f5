#include <jobkit/hatch/Clipping_p.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace jobkit {

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

// Shares of the spacing: how far the outline may be simplified at first, and then each contour,
// whose errors add up from one to the next.
constexpr double kFirstTolerance = 0.01;
constexpr double kTolerance = 0.004;
constexpr double kLongestJoinShare = 1.5;

/** The distance of a point from the straight way between two others, squared, in steps. */
double squaredOff(const IntPoint &point, const IntPoint &a, const IntPoint &b)
{
    const double x = double(b.X - a.X);
    const double y = double(b.Y - a.Y);
    const double u = double(point.X - a.X);
    const double v = double(point.Y - a.Y);
    const double length = x * x + y * y;
    const double share = length > 0.0 ? std::clamp((u * x + v * y) / length, 0.0, 1.0) : 0.0;
    const double dx = u - share * x;
    const double dy = v - share * y;
    return dx * dx + dy * dy;
}

/** Leaves out points from which the straight way between those kept is no farther than that. */
Path thinned(const Path &path, double toleranceSteps)
{
    constexpr size_t kLongestRun = 64; // bounds the work on a point
    if (path.size() < 8)
        return path;
    const double most = toleranceSteps * toleranceSteps;
    Path kept{path.front()};
    size_t anchor = 0;
    for (size_t i = 1; i + 1 < path.size(); ++i) {
        bool isNeeded = i + 1 - anchor > kLongestRun;
        for (size_t k = anchor + 1; k <= i && !isNeeded; ++k)
            isNeeded = squaredOff(path[k], path[anchor], path[i + 1]) > most;
        if (!isNeeded)
            continue;
        kept.push_back(path[i]);
        anchor = i;
    }
    kept.push_back(path.back());
    return kept;
}

Paths thinned(const Paths &paths, double toleranceSteps)
{
    Paths result;
    for (const Path &path : paths)
        result.push_back(thinned(path, toleranceSteps));
    return result;
}

/** The place on a contour nearest to a point. */
struct Nearest
{
    double squared = 1e300;
    int contour = -1;
    int edge = 0;
    QPointF at;
};

void findNearest(const QPolygonF &contour, const QPointF &to, int index, Nearest *best)
{
    for (int i = 0; i + 1 < contour.size(); ++i) {
        const QPointF along = contour[i + 1] - contour[i];
        const double length = QPointF::dotProduct(along, along);
        const double share =
            length > 0.0
                ? std::clamp(QPointF::dotProduct(to - contour[i], along) / length, 0.0, 1.0)
                : 0.0;
        const QPointF at = contour[i] + along * share;
        const QPointF off = to - at;
        const double squared = QPointF::dotProduct(off, off);
        if (squared < best->squared)
            *best = {squared, index, i, at};
    }
}

/** Goes on with a run: to this place on the contour, round it and back to the place. */
void append(const QPolygonF &contour, const Nearest &from, QPolygonF *run)
{
    run->append(from.at);
    for (int i = 1; i < contour.size(); ++i) {
        const int point = (from.edge + i) % (contour.size() - 1);
        if (contour[point] != run->last())
            run->append(contour[point]);
    }
    if (run->last() != from.at)
        run->append(from.at);
}

/** Contours from the outside in, joined to the runs that end beside them. */
class ContourRuns
{
public:
    explicit ContourRuns(double spacingMm)
        : m_longestSquared(std::pow(spacingMm * kLongestJoinShare, 2))
    {
    }

    void add(const Area &level)
    {
        std::vector<bool> isJoined(static_cast<size_t>(level.size()), false);
        QVector<int> ends;
        for (const int run : m_growing) {
            Nearest best;
            for (int i = 0; i < level.size(); ++i) {
                if (!isJoined[static_cast<size_t>(i)])
                    findNearest(level[i], m_runs[run].last(), i, &best);
            }
            if (best.squared > m_longestSquared)
                continue;
            isJoined[static_cast<size_t>(best.contour)] = true;
            append(level[best.contour], best, &m_runs[run]);
            ends.append(run);
        }
        for (int i = 0; i < level.size(); ++i) {
            if (isJoined[static_cast<size_t>(i)])
                continue;
            ends.append(m_runs.size());
            m_runs.append(level[i]);
        }
        m_growing = ends;
    }

    const QVector<QPolygonF> &result() const { return m_runs; }

private:
    double m_longestSquared;
    QVector<QPolygonF> m_runs;
    QVector<int> m_growing; ///< those that end at the level before
};

} // namespace

QVector<QPolygonF> contourHatch(const Area &area, double spacingMm, double insetMm)
{
    const bool isInRange = spacingMm >= kLeastSpacingMm && spacingMm <= kMostSpacingMm &&
                           insetMm >= 0.0 && insetMm <= kMostCoordinateMm;
    if (!isInRange)
        return {};
    Paths paths = thinned(clipPaths(area, ClipperLib::pftEvenOdd),
                          spacingMm * kFirstTolerance * kClipStepsMm);
    double step = insetMm > 0.0 ? insetMm : spacingMm;
    ContourRuns runs(spacingMm);
    qint64 lines = 0;
    while (!paths.empty()) {
        paths = thinned(movedInward(paths, step, spacingMm * kTolerance),
                        spacingMm * kTolerance * kClipStepsMm);
        for (const Path &path : paths)
            lines += qint64(path.size());
        if (lines > kMostHatchLines)
            return {};
        runs.add(areaOf(paths));
        step = spacingMm;
    }
    return runs.result();
}

} // namespace jobkit
