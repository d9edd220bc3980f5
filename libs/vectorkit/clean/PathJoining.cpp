#include <vectorkit/clean/PathJoining.h>

#include <vectorkit/clean/PointGrid_p.h>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

/** One round of joining, with ends at most so far apart. */
class Joiner
{
public:
    /** `part` is told how much of the round is done, and cancels with false. */
    Joiner(const QVector<VectorPath> &paths, double withinMm,
           const std::function<bool(double)> &part)
        : m_runs(paths), m_within(withinMm), m_progress(part),
          m_ends(static_cast<std::size_t>(paths.size()) * 2, std::max(withinMm, 1e-6)),
          m_isUsed(static_cast<std::size_t>(paths.size()), false)
    {
        for (int i = 0; i < m_runs.size(); ++i) {
            if (m_runs[i].isEmpty() || m_runs[i].isClosed())
                continue;
            m_ends.insert(m_ends.cellOf(m_runs[i].start()), i * 2);
            m_ends.insert(m_ends.cellOf(m_runs[i].end()), i * 2 + 1);
        }
    }

    QVector<VectorPath> join(JoinFigures *figures)
    {
        QVector<VectorPath> joined;
        for (int i = 0; i < m_runs.size() && !m_isCancelled; ++i) {
            if (m_isUsed[static_cast<std::size_t>(i)] || m_runs[i].isEmpty())
                continue;
            use(i);
            joined.append(m_runs[i].isClosed() ? m_runs[i] : chainFrom(i, figures));
        }
        return joined;
    }

    bool isCancelled() const { return m_isCancelled; }

private:
    /** Takes a run, which is what the time goes into. */
    void use(int run)
    {
        constexpr int kEvery = 1024;
        m_isUsed[static_cast<std::size_t>(run)] = true;
        if (m_used++ % kEvery == 0 && m_progress)
            m_isCancelled = m_isCancelled || !m_progress(double(m_used) / m_runs.size());
    }

    /** The other run's end nearest to a point, 2 i for a start, 2 i + 1 for an end; -1: none. */
    int nearestEnd(const QPointF &point) const
    {
        int nearest = -1;
        double least = m_within;
        m_ends.forCellsAround(m_ends.cellOf(point), [&](int end) {
            if (m_isUsed[static_cast<std::size_t>(end / 2)])
                return;
            const VectorPath &run = m_runs[end / 2];
            const double gap = distance(end % 2 == 0 ? run.start() : run.end(), point);
            if (gap < least || (gap == least && (nearest < 0 || end < nearest))) {
                nearest = end;
                least = gap;
            }
        });
        return nearest;
    }

    static bool canClose(const VectorPath &path, double gap, double limit)
    {
        // A line and its way back are no outline, nor is a run shorter than the gap.
        return gap <= limit && (path.pieceCount() > 2 || !path.isPolyline()) &&
               path.lengthMm() > 2.0 * gap;
    }

    /** Grows a run at its end until nothing is near; whether it came back to its start. */
    bool grow(VectorPath *chain, JoinFigures *figures)
    {
        for (;;) {
            const int end = nearestEnd(chain->end());
            const double gapToStart = distance(chain->start(), chain->end());
            const double gap = end < 0
                                   ? 0.0
                                   : distance(chain->end(), end % 2 == 0 ? m_runs[end / 2].start()
                                                                         : m_runs[end / 2].end());
            if ((end < 0 || gapToStart <= gap) && gapToStart <= m_within &&
                canClose(*chain, gapToStart, m_within)) {
                if (gapToStart > 0.0)
                    chain->setEnd(chain->start());
                chain->close();
                ++figures->closed;
                return true;
            }
            if (end < 0 || m_isCancelled)
                return false;
            use(end / 2);
            const VectorPath next = end % 2 == 0 ? m_runs[end / 2] : m_runs[end / 2].reversed();
            if (gap > 0.0)
                chain->setEnd(next.start());
            chain->append(next);
            ++figures->joined;
        }
    }

    VectorPath chainFrom(int first, JoinFigures *figures)
    {
        VectorPath chain = m_runs[first];
        if (grow(&chain, figures))
            return chain;
        VectorPath back = chain.reversed();
        const int before = back.pieceCount();
        const bool isClosed = grow(&back, figures);
        return isClosed || back.pieceCount() != before ? back.reversed() : chain;
    }

    const QVector<VectorPath> &m_runs;
    double m_within;
    const std::function<bool(double)> &m_progress; ///< borrowed from the caller
    CellTable m_ends;
    std::vector<bool> m_isUsed;
    int m_used = 0;
    bool m_isCancelled = false;
};

} // namespace

QVector<VectorPath> joinedPaths(const QVector<VectorPath> &paths, double withinMm,
                                JoinFigures *figures, const std::function<bool(double)> &progress)
{
    JoinFigures counted;
    const double rounds = withinMm > 0.0 ? 2.0 : 1.0;
    QVector<VectorPath> joined = paths;
    for (int round = 0; round < int(rounds); ++round) { // ends that meet exactly, then the others
        const std::function<bool(double)> part = [&](double done) {
            return !progress || progress((round + done) / rounds);
        };
        const QVector<VectorPath> before = joined;
        Joiner joiner(before, round == 0 ? 0.0 : withinMm, part);
        joined = joiner.join(&counted);
        if (joiner.isCancelled())
            return paths;
    }
    if (figures) {
        figures->joined += counted.joined;
        figures->closed += counted.closed;
    }
    return joined;
}

} // namespace vectorkit
