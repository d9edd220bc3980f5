#include <ZTDrawEngineLib/model/GreedyChain_p.h>

#include <ZTDrawEngineLib/model/PointRow_p.h>
#include <ZTDrawEngineLib/model/PointTree_p.h>

#include <cmath>
#include <iterator>

namespace {

/** Kept: part of the rule. What costs as much as this is not chosen for its cost. */
constexpr double kUnreachable = 999999999999999.0;

bool isFinite(const QPointF &point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

/** What the chain needs to know of an object, side by side in memory. */
struct Stop
{
    enum Kind : quint8 {
        Reachable, ///< its first polygon has a first point
        Barrier,   ///< its first polygon is empty
        Blank      ///< it has no polygons
    };

    QPointF first; ///< where it is reached
    QPointF next;  ///< where the chain goes on from
    Kind kind = Blank;
    bool endsChain = true; ///< there is nowhere to go on from

    /** The same number for number: almost the same is another place. */
    bool isLeftWhereReached() const
    {
        return kind == Reachable && !endsChain && first.x() == next.x() && first.y() == next.y() &&
               isFinite(first);
    }
};

Stop stopAt(const ZTMarkObject &object)
{
    Stop stop;
    const QList<QPolygonF> &lines = object.lines;
    if (lines.isEmpty())
        return stop;
    stop.kind = lines.constFirst().isEmpty() ? Stop::Barrier : Stop::Reachable;
    if (stop.kind == Stop::Reachable)
        stop.first = lines.constFirst().constFirst();
    stop.endsChain = lines.constLast().isEmpty();
    // Kept: the laser ends at the last point of this polygon, and the chain goes on from its first;
    // orders that users know depend on it.
    if (!stop.endsChain)
        stop.next = lines.constLast().constFirst();
    return stop;
}

std::vector<Stop> stopsAt(const QVector<ZTMarkObject> &objects)
{
    std::vector<Stop> stops;
    stops.reserve(static_cast<std::size_t>(objects.size()));
    std::transform(objects.begin(), objects.end(), std::back_inserter(stops), stopAt);
    return stops;
}

/** What finds the next of the points, by the cost between them. */
template <class Cost>
struct PointsFor
{
    using Type = PointTree<Cost>;
};

template <>
struct PointsFor<XDifference>
{
    using Type = PointRow<XDifference>;
};

template <>
struct PointsFor<YDifference>
{
    using Type = PointRow<YDifference>;
};

/**
 * The objects between two barriers, a barrier being an object with an empty first polygon.
 *
 * A barrier hides what stands behind it and goes only when it is the first remaining object, so
 * the objects of one stretch are all taken before any of the next is looked at.
 */
template <class Cost>
class Stretch
{
    using Points = typename PointsFor<Cost>::Type;

public:
    Stretch(const std::vector<Stop> &all, int begin, int stretchEnd, const Cost &costBetween)
        : m_stops(all), m_cost(costBetween), m_base(begin), m_end(stretchEnd),
          m_firstRemaining(begin), m_isTaken(static_cast<std::size_t>(stretchEnd - begin)),
          m_points(sortOut(), costBetween)
    {
    }

    bool isEmpty() const { return m_firstRemaining == m_end; }

    /**
     * Takes the object that costs least to reach, or the first one where none can be reached.
     *
     * `last` is an object of the stretch that was reached at `from`, or -1.
     */
    int take(const QPointF &from, int last)
    {
        typename Points::Hit best{kUnreachable, -1};
        if (isFinite(from)) {
            if (last >= 0)
                m_points.improveNear(last, from, best);
            else
                m_points.improve(from, best);
            for (const int index : m_odd)
                improveBy(index, from, best);
        } else {
            for (int index = m_firstRemaining; index < m_end; ++index)
                improveBy(index, from, best);
        }
        const int index = best.number < 0 ? m_firstRemaining : best.number;
        remove(index);
        return index;
    }

private:
    /** Fills `odd` and gives the others to `points`. Objects without polygons go to neither. */
    std::vector<typename Points::Item> sortOut()
    {
        std::vector<typename Points::Item> items;
        items.reserve(m_isTaken.size());
        for (int index = m_base; index < m_end; ++index) {
            if (m_stops[index].kind == Stop::Blank)
                continue;
            if (isFinite(m_stops[index].first))
                items.push_back({m_stops[index].first, index});
            else
                m_odd.push_back(index);
        }
        return items;
    }

    void improveBy(int index, const QPointF &from, typename Points::Hit &best) const
    {
        if (m_isTaken[index - m_base] || m_stops[index].kind == Stop::Blank)
            return;
        const double itemCost = m_cost(from, m_stops[index].first);
        if (itemCost < best.cost || (itemCost == best.cost && index < best.number))
            best = {itemCost, index};
    }

    void remove(int index)
    {
        m_isTaken[index - m_base] = true;
        while (m_firstRemaining < m_end && m_isTaken[m_firstRemaining - m_base])
            ++m_firstRemaining;
        if (m_stops[index].kind == Stop::Blank)
            return;
        if (isFinite(m_stops[index].first))
            m_points.remove(index);
        else
            m_odd.erase(std::find(m_odd.begin(), m_odd.end(), index));
    }

    const std::vector<Stop> &m_stops;
    const Cost &m_cost;
    int m_base; ///< index of the first object of the stretch
    int m_end;  ///< index behind the last one
    int m_firstRemaining;
    std::vector<bool> m_isTaken; ///< by index less `base`
    std::vector<int> m_odd;      ///< remaining objects whose first point is not finite
    Points m_points;             ///< remaining objects whose first point is
};

/** Index of the next barrier, or of the end. */
int nextBarrier(const std::vector<Stop> &stops, int from)
{
    const auto barrier = std::find_if(stops.begin() + from, stops.end(),
                                      [](const Stop &stop) { return stop.kind == Stop::Barrier; });
    return static_cast<int>(barrier - stops.begin());
}

template <class Cost>
std::vector<int> chainOf(const std::vector<Stop> &stops, const Cost &cost, QPointF current)
{
    std::vector<int> order;
    order.reserve(stops.size());
    int last = -1; // where the chain is, if it goes on from where it came to
    const auto goTo = [&](int index) {
        const Stop &stop = stops[index];
        order.push_back(index);
        current = stop.next;
        last = stop.isLeftWhereReached() ? index : -1;
        return !stop.endsChain;
    };

    const int count = static_cast<int>(stops.size());
    for (int begin = 0; begin < count;) {
        const int end = nextBarrier(stops, begin);
        Stretch<Cost> stretch(stops, begin, end, cost);
        last = -1;
        while (!stretch.isEmpty()) {
            if (!goTo(stretch.take(current, last)))
                return order;
        }
        if (end < count && !goTo(end))
            return order;
        begin = end + 1;
    }
    return order;
}

} // namespace

std::vector<int> greedyChain(const QVector<ZTMarkObject> &objects, const PointCost &cost,
                             const QPointF &start)
{
    const std::vector<Stop> stops = stopsAt(objects);
    // A cost that is known by its type is computed in place, without a call.
    if (const auto *known = cost.target<LargerDifference>())
        return chainOf(stops, *known, start);
    if (const auto *known = cost.target<XDifference>())
        return chainOf(stops, *known, start);
    if (const auto *known = cost.target<YDifference>())
        return chainOf(stops, *known, start);
    return chainOf(stops, cost, start);
}
