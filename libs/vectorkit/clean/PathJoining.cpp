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
    Joiner(const QVector<VectorPath> &paths, double withinMm)
        : m_runs(paths), m_within(withinMm),
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
        for (int i = 0; i < m_runs.size(); ++i) {
            if (m_isUsed[static_cast<std::size_t>(i)] || m_runs[i].isEmpty())
                continue;
            m_isUsed[static_cast<std::size_t>(i)] = true;
            joined.append(m_runs[i].isClosed() ? m_runs[i] : chainFrom(i, figures));
        }
        return joined;
    }

private:
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
            if (end < 0)
                return false;
            m_isUsed[static_cast<std::size_t>(end / 2)] = true;
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
    CellTable m_ends;
    std::vector<bool> m_isUsed;
};

} // namespace

QVector<VectorPath> joinedPaths(const QVector<VectorPath> &paths, double withinMm,
                                JoinFigures *figures)
{
    JoinFigures unheard;
    JoinFigures *counted = figures ? figures : &unheard;
    const QVector<VectorPath> exact = Joiner(paths, 0.0).join(counted);
    return withinMm > 0.0 ? Joiner(exact, withinMm).join(counted) : exact;
}

} // namespace vectorkit
