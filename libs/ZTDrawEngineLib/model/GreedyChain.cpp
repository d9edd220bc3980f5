#include <ZTDrawEngineLib/model/GreedyChain_p.h>

#include <ZTDrawEngineLib/model/PointRow_p.h>
#include <ZTDrawEngineLib/model/PointTree_p.h>

#include <cmath>
#include <type_traits>

namespace {

/** Kept: part of the rule. What costs as much as this is not chosen for its cost. */
constexpr double kUnreachable = 999999999999999.0;

bool isFinite(const QPointF &point) { return std::isfinite(point.x()) && std::isfinite(point.y()); }

/** Where an object is reached and left. */
struct Stop
{
    QPointF first; ///< where it is reached, if it is
    QPointF next;  ///< where the chain goes on from, if it does
};

/** What kind of stop an object is. */
enum class Kind : quint8 {
    Spot,    ///< the chain goes on from where the object is reached
    Passage, ///< it goes on from elsewhere, or not at all
    Odd,     ///< reached at what is not a finite point
    Barrier, ///< the first polygon is empty
    Blank    ///< there are no polygons
};

/** Whether there is nowhere to go on from. */
bool isEnd(const QList<QPolygonF> &lines) { return lines.isEmpty() || lines.constLast().isEmpty(); }

Stop stopAt(const QList<QPolygonF> &lines)
{
    Stop stop;
    if (!lines.isEmpty() && !lines.constFirst().isEmpty())
        stop.first = lines.constFirst().constFirst();
    // Kept: the laser ends at the last point of this polygon, and the chain goes on from its first;
    // orders that users know depend on it.
    if (!isEnd(lines))
        stop.next = lines.constLast().constFirst();
    return stop;
}

Kind kindOf(const QList<QPolygonF> &lines, const Stop &stop)
{
    if (lines.isEmpty())
        return Kind::Blank;
    if (lines.constFirst().isEmpty())
        return Kind::Barrier;
    if (!isFinite(stop.first))
        return Kind::Odd;
    // The same number for number: almost the same is another place.
    const bool isLeftWhereReached =
        !isEnd(lines) && stop.first.x() == stop.next.x() && stop.first.y() == stop.next.y();
    return isLeftWhereReached ? Kind::Spot : Kind::Passage;
}

struct KindOfStop
{
    Kind kind;
    bool isEnd; ///< there is nowhere to go on from
};

/** All that the chain needs to know of the objects, by index; what is asked most close together. */
struct Stops
{
    explicit Stops(const QVector<ZTMarkObject> &objects)
        : all(static_cast<std::size_t>(objects.size())), kinds(all.size())
    {
        std::size_t index = 0;
        for (const ZTMarkObject &object : objects) {
            all[index] = stopAt(object.lines);
            kinds[index] = {kindOf(object.lines, all[index]), isEnd(object.lines)};
            ++index;
        }
    }

    std::vector<Stop> all;
    std::vector<KindOfStop> kinds;
};

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
    using Hit = typename Points::Hit;

public:
    Stretch(const Stops &all, int begin, int stretchEnd, const Cost &costBetween)
        : m_stops(all), m_cost(costBetween), m_base(begin), m_end(stretchEnd),
          m_firstRemaining(begin), m_isTaken(static_cast<std::size_t>(stretchEnd - begin)),
          m_points(sortOut(), costBetween)
    {
    }

    bool isEmpty() const { return m_firstRemaining == m_end; }

    /**
     * Takes the object that costs least to reach, or the first one where none can be reached.
     *
     * `last` is an object of the stretch that was reached at `at`, or -1. Then, `at` is where the
     * chain goes on from.
     */
    int take(QPointF &at, int last)
    {
        const QPointF from = at;
        Hit best{kUnreachable, -1};
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
        at =
            m_stops.kinds[index].kind == Kind::Spot ? spotOf(index, best) : m_stops.all[index].next;
        remove(index);
        return index;
    }

private:
    /** Where an object is, from memory that was just looked at if there is such. */
    QPointF spotOf(int index, const Hit &hit) const
    {
        if constexpr (std::is_same_v<Points, PointTree<Cost>>) {
            if (hit.place >= 0)
                return m_points.pointOf(hit);
        }
        return m_stops.all[index].first;
    }

    /** Fills `odd` and gives the others to `points`. Objects without polygons go to neither. */
    std::vector<typename Points::Item> sortOut()
    {
        std::vector<typename Points::Item> items;
        items.reserve(m_isTaken.size());
        for (int index = m_base; index < m_end; ++index) {
            if (m_stops.kinds[index].kind == Kind::Odd)
                m_odd.push_back(index);
            else if (m_stops.kinds[index].kind != Kind::Blank)
                items.push_back({m_stops.all[index].first, index});
        }
        return items;
    }

    void improveBy(int index, const QPointF &from, Hit &best) const
    {
        if (m_isTaken[index - m_base] || m_stops.kinds[index].kind == Kind::Blank)
            return;
        const double itemCost = m_cost(from, m_stops.all[index].first);
        if (itemCost < best.cost || (itemCost == best.cost && index < best.number))
            best = {itemCost, index};
    }

    void remove(int index)
    {
        m_isTaken[index - m_base] = true;
        while (m_firstRemaining < m_end && m_isTaken[m_firstRemaining - m_base])
            ++m_firstRemaining;
        if (m_stops.kinds[index].kind == Kind::Odd)
            m_odd.erase(std::find(m_odd.begin(), m_odd.end(), index));
        else if (m_stops.kinds[index].kind != Kind::Blank)
            m_points.remove(index);
    }

    const Stops &m_stops;
    const Cost &m_cost;
    int m_base; ///< index of the first object of the stretch
    int m_end;  ///< index behind the last one
    int m_firstRemaining;
    std::vector<bool> m_isTaken; ///< by index less `base`
    std::vector<int> m_odd;      ///< remaining objects whose first point is not finite
    Points m_points;             ///< remaining objects whose first point is
};

/** Index of the next barrier, or of the end. */
int nextBarrier(const Stops &stops, int from)
{
    const auto barrier =
        std::find_if(stops.kinds.begin() + from, stops.kinds.end(),
                     [](const KindOfStop &stop) { return stop.kind == Kind::Barrier; });
    return static_cast<int>(barrier - stops.kinds.begin());
}

template <class Cost>
std::vector<int> chainOf(const Stops &stops, const Cost &cost, QPointF current)
{
    std::vector<int> order;
    order.reserve(stops.all.size());
    int last = -1; // where the chain is, if it goes on from where it came to
    const auto take = [&](int index) {
        order.push_back(index);
        last = stops.kinds[index].kind == Kind::Spot ? index : -1;
        return !stops.kinds[index].isEnd;
    };

    const int count = static_cast<int>(stops.all.size());
    for (int begin = 0; begin < count;) {
        const int end = nextBarrier(stops, begin);
        Stretch<Cost> stretch(stops, begin, end, cost);
        last = -1;
        while (!stretch.isEmpty()) {
            if (!take(stretch.take(current, last)))
                return order;
        }
        if (end < count) {
            current = stops.all[end].next;
            if (!take(end))
                return order;
        }
        begin = end + 1;
    }
    return order;
}

} // namespace

std::vector<int> greedyChain(const QVector<ZTMarkObject> &objects, const PointCost &cost,
                             const QPointF &start)
{
    const Stops stops(objects);
    // A cost that is known by its type is computed in place, without a call.
    if (const auto *known = cost.target<LargerDifference>())
        return chainOf(stops, *known, start);
    if (const auto *known = cost.target<XDifference>())
        return chainOf(stops, *known, start);
    if (const auto *known = cost.target<YDifference>())
        return chainOf(stops, *known, start);
    return chainOf(stops, cost, start);
}
