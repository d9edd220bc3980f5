#include <jobkit/plan/FewStops_p.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace jobkit {

namespace {

/** One way to mark a stop, with the shortest way through all stops before it. */
struct Way
{
    QPointF entry;
    QPointF exit;
    bool isReversed = false;
    double length = 0.0;
    int before = -1; ///< which way of the stop before
};

std::vector<Way> waysOf(const TourStop &stop)
{
    std::vector<Way> ways;
    for (const QPointF &start : stop.starts)
        ways.push_back({start, start});
    if (!ways.empty())
        return ways;
    ways.push_back({stop.ends[0], stop.ends[1]});
    if (!stop.isOneWay)
        ways.push_back({stop.ends[1], stop.ends[0], true});
    return ways;
}

class Search
{
public:
    Search(const std::vector<TourStop> &stops, const QPointF *headOrNull)
        : m_head(headOrNull), m_count(stops.size())
    {
        for (size_t i = 0; i < m_count; ++i)
            m_ways[i] = waysOf(stops[i]);
    }

    std::vector<Tour::Visit> run()
    {
        goOn(0);
        return m_best;
    }

private:
    void goOn(size_t done)
    {
        if (done == m_count) {
            keepIfBetter();
            return;
        }
        for (size_t stop = 0; stop < m_count; ++stop) {
            if (m_isUsed[stop])
                continue;
            reach(done, stop);
            m_isUsed[stop] = true;
            goOn(done + 1);
            m_isUsed[stop] = false;
        }
    }

    /** Fills the level: each way of the stop after the best way of the one before. */
    void reach(size_t level, size_t stop)
    {
        m_sequence[level] = stop;
        m_levels[level] = m_ways[stop];
        for (Way &way : m_levels[level]) {
            way.length = std::numeric_limits<double>::infinity();
            if (level == 0)
                way.length = m_head != nullptr ? distance(*m_head, way.entry) : 0.0;
            for (size_t i = 0; level > 0 && i < m_levels[level - 1].size(); ++i) {
                const Way &from = m_levels[level - 1][i];
                const double length = from.length + distance(from.exit, way.entry);
                if (length < way.length) {
                    way.length = length;
                    way.before = static_cast<int>(i);
                }
            }
        }
    }

    void keepIfBetter()
    {
        const std::vector<Way> &last = m_levels[m_count - 1];
        const auto shortest =
            std::min_element(last.begin(), last.end(),
                             [](const Way &a, const Way &b) { return a.length < b.length; });
        if (shortest->length >= m_bestLength)
            return;
        m_bestLength = shortest->length;
        m_best.assign(m_count, {0, false, {}});
        int way = static_cast<int>(shortest - last.begin());
        for (size_t level = m_count; level-- > 0;) {
            const Way &taken = m_levels[level][static_cast<size_t>(way)];
            m_best[level] = {static_cast<int>(m_sequence[level]), taken.isReversed, taken.entry};
            way = taken.before;
        }
    }

    static double distance(const QPointF &a, const QPointF &b)
    {
        return std::hypot(b.x() - a.x(), b.y() - a.y());
    }

    const QPointF *m_head;
    size_t m_count;
    std::array<std::vector<Way>, kFewStops> m_ways;
    std::array<std::vector<Way>, kFewStops> m_levels;
    std::array<size_t, kFewStops> m_sequence{};
    std::array<bool, kFewStops> m_isUsed{};
    std::vector<Tour::Visit> m_best;
    double m_bestLength = std::numeric_limits<double>::infinity();
};

} // namespace

std::vector<Tour::Visit> shortestOfAll(const std::vector<TourStop> &stops, const QPointF *head)
{
    if (stops.empty())
        return {};
    return Search(stops, head).run();
}

} // namespace jobkit
