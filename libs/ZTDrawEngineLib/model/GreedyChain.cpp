#include <ZTDrawEngineLib/model/GreedyChain_p.h>

#include <ZTDrawEngineLib/model/PointTree_p.h>

#include <cmath>

namespace {

using Cost = std::function<double(const QPointF &, const QPointF &)>;
using Tree = PointTree<Cost>;

/** Kept: part of the rule. What costs as much as this is not chosen for its cost. */
constexpr double kUnreachable = 999999999999999.0;

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool isBarrier(const ZTMarkObject &object)
{
    return !object.lines.isEmpty() && object.lines.constFirst().isEmpty();
}

/**
 * The objects between two barriers, a barrier being an object with an empty first polygon.
 *
 * A barrier hides what stands behind it and goes only when it is the first remaining object, so
 * the objects of one stretch are all taken before any of the next is looked at.
 */
class Stretch
{
public:
    Stretch(const QVector<ZTMarkObject> &all, int begin, int stretchEnd, const Cost &costBetween)
        : objects(all), cost(costBetween), base(begin), end(stretchEnd), firstRemaining(begin),
          isTaken(static_cast<std::size_t>(stretchEnd - begin)), tree(sortOut(), costBetween)
    {
    }

    bool isEmpty() const { return firstRemaining == end; }

    /** Takes the object that costs least to reach, or the first one where none can be reached. */
    int take(const QPointF &from)
    {
        Tree::Hit best{kUnreachable, -1};
        if (isFinite(from)) {
            tree.improve(from, best);
            for (const int index : odd)
                improveBy(index, from, best);
        } else {
            for (int index = firstRemaining; index < end; ++index)
                improveBy(index, from, best);
        }
        const int index = best.number < 0 ? firstRemaining : best.number;
        remove(index);
        return index;
    }

private:
    /** Fills `odd` and gives the others to the tree. Objects without polygons go to neither. */
    std::vector<Tree::Item> sortOut()
    {
        std::vector<Tree::Item> items;
        items.reserve(isTaken.size());
        for (int index = base; index < end; ++index) {
            if (objects.at(index).lines.isEmpty())
                continue;
            if (isFinite(firstPoint(index)))
                items.push_back({firstPoint(index), index});
            else
                odd.push_back(index);
        }
        return items;
    }

    const QPointF &firstPoint(int index) const
    {
        return objects.at(index).lines.constFirst().constFirst();
    }

    void improveBy(int index, const QPointF &from, Tree::Hit &best) const
    {
        if (isTaken[index - base] || objects.at(index).lines.isEmpty())
            return;
        const double itemCost = cost(from, firstPoint(index));
        if (itemCost < best.cost || (itemCost == best.cost && index < best.number))
            best = {itemCost, index};
    }

    void remove(int index)
    {
        isTaken[index - base] = true;
        while (firstRemaining < end && isTaken[firstRemaining - base])
            ++firstRemaining;
        const auto at = std::find(odd.begin(), odd.end(), index);
        if (at != odd.end())
            odd.erase(at);
        else if (!objects.at(index).lines.isEmpty())
            tree.remove(index);
    }

    const QVector<ZTMarkObject> &objects;
    const Cost &cost;
    int base; ///< index of the first object of the stretch
    int end;  ///< index behind the last one
    int firstRemaining;
    std::vector<bool> isTaken; ///< by index less `base`
    std::vector<int> odd;      ///< remaining objects whose first point is not finite
    Tree tree;                 ///< remaining objects whose first point is
};

/** The chain as far as it has grown. */
class Chain
{
public:
    Chain(const QVector<ZTMarkObject> &all, const QPointF &start) : current(start), objects(all)
    {
        order.reserve(static_cast<std::size_t>(objects.size()));
    }

    /** Goes on to an object; false when the chain ends there. */
    bool goTo(int index)
    {
        order.push_back(index);
        const QList<QPolygonF> &lines = objects.at(index).lines;
        if (lines.isEmpty() || lines.constLast().isEmpty())
            return false;
        // Kept: the laser ends at the last point of this polygon, and the chain goes on from its
        // first; orders that users know depend on it.
        current = lines.constLast().constFirst();
        return true;
    }

    QPointF current;
    std::vector<int> order;

private:
    const QVector<ZTMarkObject> &objects;
};

} // namespace

std::vector<int> greedyChain(const QVector<ZTMarkObject> &objects,
                             const std::function<double(const QPointF &, const QPointF &)> &cost,
                             const QPointF &start)
{
    Chain chain(objects, start);
    for (int begin = 0; begin < objects.size();) {
        const auto first = objects.cbegin();
        const auto barrier = std::find_if(first + begin, objects.cend(), isBarrier);
        const int end = static_cast<int>(barrier - first);
        Stretch stretch(objects, begin, end, cost);
        while (!stretch.isEmpty()) {
            if (!chain.goTo(stretch.take(chain.current)))
                return chain.order;
        }
        if (end < objects.size() && !chain.goTo(end))
            return chain.order;
        begin = end + 1;
    }
    return chain.order;
}
