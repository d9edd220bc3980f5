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
        : head(headOrNull), count(stops.size())
    {
        for (size_t i = 0; i < count; ++i)
            ways[i] = waysOf(stops[i]);
    }

    std::vector<Tour::Visit> run()
    {
        goOn(0);
        return best;
    }

private:
    void goOn(size_t done)
    {
        if (done == count) {
            keepIfBetter();
            return;
        }
        for (size_t stop = 0; stop < count; ++stop) {
            if (isUsed[stop])
                continue;
            reach(done, stop);
            isUsed[stop] = true;
            goOn(done + 1);
            isUsed[stop] = false;
        }
    }

    /** Fills the level: each way of the stop after the best way of the one before. */
    void reach(size_t level, size_t stop)
    {
        sequence[level] = stop;
        levels[level] = ways[stop];
        for (Way &way : levels[level]) {
            way.length = std::numeric_limits<double>::infinity();
            if (level == 0)
                way.length = head != nullptr ? distance(*head, way.entry) : 0.0;
            for (size_t i = 0; level > 0 && i < levels[level - 1].size(); ++i) {
                const Way &from = levels[level - 1][i];
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
        const std::vector<Way> &last = levels[count - 1];
        const auto shortest =
            std::min_element(last.begin(), last.end(),
                             [](const Way &a, const Way &b) { return a.length < b.length; });
        if (shortest->length >= bestLength)
            return;
        bestLength = shortest->length;
        best.assign(count, {0, false, {}});
        int way = static_cast<int>(shortest - last.begin());
        for (size_t level = count; level-- > 0;) {
            const Way &taken = levels[level][static_cast<size_t>(way)];
            best[level] = {static_cast<int>(sequence[level]), taken.isReversed, taken.entry};
            way = taken.before;
        }
    }

    static double distance(const QPointF &a, const QPointF &b)
    {
        return std::hypot(b.x() - a.x(), b.y() - a.y());
    }

    const QPointF *head;
    size_t count;
    std::array<std::vector<Way>, kFewStops> ways;
    std::array<std::vector<Way>, kFewStops> levels;
    std::array<size_t, kFewStops> sequence{};
    std::array<bool, kFewStops> isUsed{};
    std::vector<Tour::Visit> best;
    double bestLength = std::numeric_limits<double>::infinity();
};

} // namespace

std::vector<Tour::Visit> shortestOfAll(const std::vector<TourStop> &stops, const QPointF *head)
{
    if (stops.empty())
        return {};
    return Search(stops, head).run();
}

} // namespace jobkit
