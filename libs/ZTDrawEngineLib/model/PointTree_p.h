#pragma once

#include <ZTDrawEngineLib/model/Halving_p.h>

#include <QtCore/QPointF>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

/**
 * Points that can be asked, again and again, which of them costs least to reach, and removed.
 *
 * A balanced tree: every node knows the box around its remaining points and the least of their
 * numbers. Costs are compared as they are computed, rounding included. That is sound because each
 * cost here grows with the absolute differences of x and of y, and rounding keeps that order: no
 * point in a box has a smaller computed cost than the spot of the box that is closest on both axes.
 *
 * A node also knows its cell, the part of the plane that none of the other points lies inside. Who
 * asks from a point of the tree is answered from its leaf upward, mostly within a few nodes: what
 * costs less than to leave the cell is not undercut from outside.
 *
 * `Cost` takes two points and gives a double. All coordinates must be finite.
 */
template <class Cost>
class PointTree
{
public:
    /** A point and what the caller calls it: a number of 0 or more, used once. */
    struct Item
    {
        QPointF point;
        int number;
    };

    /** A point that was found. Without one, the number is -1 and the cost one to undercut. */
    struct Hit
    {
        double cost;
        int number;
        int place = -1; ///< where it stands in the tree, until a point is removed
    };

    PointTree(std::vector<Item> items, Cost cost);

    /** Puts the remaining point of least cost into `best`, of least number among equal costs. */
    void improve(const QPointF &from, Hit &best) const { improveBelow(1, from, best); }

    /**
     * The same, sooner where `from` is the point that had this number, removed or not.
     *
     * The answer is the same for any number that was ever in the tree.
     */
    void improveNear(int number, const QPointF &from, Hit &best) const;

    /** A point that was just found, sooner had than from where the caller keeps it. */
    const QPointF &pointOf(const Hit &hit) const { return m_items[hit.place].point; }

    /** Takes a point out. It must be there. */
    void remove(int number);

private:
    static constexpr int kLeafSize = 32; ///< about; with half of that a sixth more time
    static constexpr int kNone = std::numeric_limits<int>::max();

    struct Node
    {
        double left = std::numeric_limits<double>::infinity();
        double top = std::numeric_limits<double>::infinity();
        double right = -std::numeric_limits<double>::infinity();
        double bottom = -std::numeric_limits<double>::infinity();
        int least = kNone;

        void add(const Node &other);
        void add(const Item &item);
        bool operator==(const Node &other) const;

        /** Whether the node may be another one without the item. */
        bool restsOn(const Item &item) const;
    };

    /** Part of the plane: points outside a node lie on its edges or beyond. */
    struct Cell
    {
        double left = -std::numeric_limits<double>::infinity();
        double top = -std::numeric_limits<double>::infinity();
        double right = std::numeric_limits<double>::infinity();
        double bottom = std::numeric_limits<double>::infinity();
    };

    struct Leaf
    {
        int begin = 0;
        int count = 0;
    };

    /** A node that is still to be looked into, and what its points cost at least. */
    struct Visit
    {
        double bound;
        int node;
    };

    bool isLeaf(int node) const { return node >= static_cast<int>(m_leaves.size()); }
    Leaf &leafOf(int node) { return m_leaves[node - m_leaves.size()]; }
    const Leaf &leafOf(int node) const { return m_leaves[node - m_leaves.size()]; }

    void sortForOneAxis();
    void build(int node, int begin, int end, const Cell &cell);
    bool splitsAcross(const Cell &cell) const;
    int split(int begin, int end, bool isAcross);
    Node boxOf(int begin, int end) const;
    Node boxOfChildren(int node) const;
    Visit visit(int node, const QPointF &from) const;
    bool isHopeless(const Visit &visit, const Hit &best) const;
    bool isCheaperThanLeaving(const Cell &cell, const QPointF &from, const Hit &best) const;
    void improveBelow(int top, const QPointF &from, Hit &best) const;
    void improveInLeaf(const Leaf &leaf, const QPointF &from, Hit &best) const;

    Cost m_cost;
    std::vector<Item> m_items;
    std::vector<Node> m_nodes;       ///< children of i are 2i and 2i + 1; the root is 1
    std::vector<Cell> m_cells;       ///< by node
    Node m_all;                      ///< around all points, also removed ones
    bool m_isSorted = false;         ///< by the only axis that counts
    std::vector<Leaf> m_leaves;      ///< of the last nodes, as many as there are others
    std::vector<int> m_leafOfNumber; ///< node, by number less the least one
    int m_firstNumber = 0;
};

template <class Cost>
PointTree<Cost>::PointTree(std::vector<Item> points, Cost costBetween)
    : m_cost(std::move(costBetween)), m_items(std::move(points))
{
    std::size_t leafCount = 1;
    while (leafCount * kLeafSize < m_items.size())
        leafCount *= 2;
    m_leaves.resize(leafCount);
    m_nodes.resize(2 * leafCount);
    m_cells.resize(2 * leafCount);

    int lastNumber = -1;
    m_firstNumber = kNone;
    for (const Item &item : m_items) {
        m_firstNumber = std::min(m_firstNumber, item.number);
        lastNumber = std::max(lastNumber, item.number);
        m_all.add(item);
    }
    if (!m_items.empty())
        m_leafOfNumber.resize(static_cast<std::size_t>(lastNumber - m_firstNumber + 1));
    sortForOneAxis();
    build(1, 0, static_cast<int>(m_items.size()), Cell());
}

/**
 * Whether a stands before b, and so on one side of where their middle is split. All is compared
 * at once: what one comparison says cannot be foreseen, and a wrong guess costs more than two.
 */
inline bool isBefore(double a, int aNumber, double b, int bNumber)
{
    const int isLess = a < b ? 1 : 0;
    const int isSame = a == b ? 1 : 0;
    const int isEarlier = aNumber < bNumber ? 1 : 0;
    return (isLess | (isSame & isEarlier)) != 0;
}

inline bool isBeforeAcross(const QPointF &a, int aNumber, const QPointF &b, int bNumber)
{
    return isBefore(a.x(), aNumber, b.x(), bNumber);
}

inline bool isBeforeDown(const QPointF &a, int aNumber, const QPointF &b, int bNumber)
{
    return isBefore(a.y(), aNumber, b.y(), bNumber);
}

/** One sort where all splits go the same way, as one axis alone counts. */
template <class Cost>
void PointTree<Cost>::sortForOneAxis()
{
    const bool isAcross = m_cost({0.0, 0.0}, {0.0, 1.0}) == 0.0;
    const bool isDown = m_cost({0.0, 0.0}, {1.0, 0.0}) == 0.0;
    m_isSorted = isAcross != isDown;
    if (!m_isSorted)
        return;
    std::sort(m_items.begin(), m_items.end(), [isAcross](const Item &a, const Item &b) {
        return isAcross ? isBeforeAcross(a.point, a.number, b.point, b.number)
                        : isBeforeDown(a.point, a.number, b.point, b.number);
    });
}

template <class Cost>
void PointTree<Cost>::build(int node, int begin, int end, const Cell &cell)
{
    m_cells[node] = cell;
    if (isLeaf(node)) {
        leafOf(node) = {begin, end - begin};
        for (int i = begin; i < end; ++i)
            m_leafOfNumber[m_items[i].number - m_firstNumber] = node;
        m_nodes[node] = boxOf(begin, end);
        return;
    }
    int middle = begin;
    Cell before = cell;
    Cell after = cell;
    if (begin < end) {
        const bool isAcross = splitsAcross(cell);
        middle = split(begin, end, isAcross);
        const QPointF &at = m_items[middle].point;
        if (isAcross)
            before.right = after.left = at.x();
        else
            before.bottom = after.top = at.y();
    }
    build(2 * node, begin, middle, before);
    build(2 * node + 1, middle, end, after);
    m_nodes[node] = boxOfChildren(node);
}

/** Whether what the cell holds of the plane's points is wider than high, as the cost sees it. */
template <class Cost>
bool PointTree<Cost>::splitsAcross(const Cell &cell) const
{
    const QPointF corner(std::max(cell.left, m_all.left), std::max(cell.top, m_all.top));
    const QPointF opposite(std::min(cell.right, m_all.right), std::min(cell.bottom, m_all.bottom));
    return m_cost(corner, {opposite.x(), corner.y()}) >= m_cost(corner, {corner.x(), opposite.y()});
}

/** Brings the lower half of the items, about, before the one that is returned. */
template <class Cost>
int PointTree<Cost>::split(int begin, int end, bool isAcross)
{
    if (m_isSorted)
        return begin + (end - begin) / 2;
    Item *const items = m_items.data();
    const Item *const middle =
        isAcross ? halve(items + begin, items + end,
                         [](const Item &a, const Item &b) {
                             return isBeforeAcross(a.point, a.number, b.point, b.number);
                         })
                 : halve(items + begin, items + end, [](const Item &a, const Item &b) {
                       return isBeforeDown(a.point, a.number, b.point, b.number);
                   });
    return static_cast<int>(middle - items);
}

template <class Cost>
void PointTree<Cost>::improveNear(int number, const QPointF &from, Hit &best) const
{
    int node = m_leafOfNumber[number - m_firstNumber];
    improveInLeaf(leafOf(node), from, best);
    for (; node > 1 && !isCheaperThanLeaving(m_cells[node], from, best); node /= 2)
        improveBelow(node ^ 1, from, best);
}

/** Whether `from` is in the cell and whatever lies outside costs more than what was found. */
template <class Cost>
bool PointTree<Cost>::isCheaperThanLeaving(const Cell &cell, const QPointF &from,
                                           const Hit &best) const
{
    const auto isFar = [&](double edge, bool isBehind, const QPointF &spot) {
        return std::isinf(edge) || (isBehind && m_cost(from, spot) > best.cost);
    };
    return isFar(cell.left, cell.left <= from.x(), {cell.left, from.y()}) &&
           isFar(cell.right, from.x() <= cell.right, {cell.right, from.y()}) &&
           isFar(cell.top, cell.top <= from.y(), {from.x(), cell.top}) &&
           isFar(cell.bottom, from.y() <= cell.bottom, {from.x(), cell.bottom});
}

template <class Cost>
void PointTree<Cost>::improveBelow(int top, const QPointF &from, Hit &best) const
{
    constexpr int kDepth = 32; // one waiting node a level
    Visit waiting[kDepth];
    int waitingCount = 0;
    Visit current = visit(top, from);
    for (;;) {
        while (!isHopeless(current, best)) {
            if (isLeaf(current.node)) {
                improveInLeaf(leafOf(current.node), from, best);
                break;
            }
            Visit near = visit(2 * current.node, from);
            Visit far = visit(2 * current.node + 1, from);
            if (std::pair(far.bound, m_nodes[far.node].least) <
                std::pair(near.bound, m_nodes[near.node].least))
                std::swap(near, far);
            waiting[waitingCount++] = far;
            current = near;
        }
        if (waitingCount == 0)
            return;
        current = waiting[--waitingCount];
    }
}

template <class Cost>
void PointTree<Cost>::remove(int number)
{
    int node = m_leafOfNumber[number - m_firstNumber];
    Leaf &leaf = leafOf(node);
    const auto begin = m_items.begin() + leaf.begin;
    const auto taken = std::find_if(begin, begin + leaf.count,
                                    [number](const Item &item) { return item.number == number; });
    const Item gone = *taken;
    --leaf.count;
    std::swap(*taken, *(begin + leaf.count));
    if (!m_nodes[node].restsOn(gone))
        return;

    Node box = boxOf(leaf.begin, leaf.begin + leaf.count);
    while (!(m_nodes[node] == box)) {
        m_nodes[node] = box;
        node /= 2;
        if (node == 0)
            return;
        box = boxOfChildren(node);
    }
}

template <class Cost>
typename PointTree<Cost>::Visit PointTree<Cost>::visit(int node, const QPointF &from) const
{
    const Node &box = m_nodes[node];
    const QPointF closest(std::min(std::max(from.x(), box.left), box.right),
                          std::min(std::max(from.y(), box.top), box.bottom));
    return {m_cost(from, closest), node};
}

/** Whether no point of the node is better; none is in an empty one. */
template <class Cost>
bool PointTree<Cost>::isHopeless(const Visit &visit, const Hit &best) const
{
    return !(visit.bound < best.cost) &&
           !(visit.bound == best.cost && m_nodes[visit.node].least < best.number);
}

template <class Cost>
void PointTree<Cost>::improveInLeaf(const Leaf &leaf, const QPointF &from, Hit &best) const
{
    for (int i = leaf.begin; i < leaf.begin + leaf.count; ++i) {
        const double itemCost = m_cost(from, m_items[i].point);
        if (itemCost < best.cost || (itemCost == best.cost && m_items[i].number < best.number))
            best = {itemCost, m_items[i].number, i};
    }
}

template <class Cost>
typename PointTree<Cost>::Node PointTree<Cost>::boxOf(int begin, int end) const
{
    Node box;
    for (int i = begin; i < end; ++i)
        box.add(m_items[i]);
    return box;
}

template <class Cost>
typename PointTree<Cost>::Node PointTree<Cost>::boxOfChildren(int node) const
{
    Node box = m_nodes[2 * node];
    box.add(m_nodes[2 * node + 1]);
    return box;
}

template <class Cost>
void PointTree<Cost>::Node::add(const Node &other)
{
    left = std::min(left, other.left);
    top = std::min(top, other.top);
    right = std::max(right, other.right);
    bottom = std::max(bottom, other.bottom);
    least = std::min(least, other.least);
}

template <class Cost>
void PointTree<Cost>::Node::add(const Item &item)
{
    add(Node{item.point.x(), item.point.y(), item.point.x(), item.point.y(), item.number});
}

template <class Cost>
bool PointTree<Cost>::Node::operator==(const Node &other) const
{
    return left == other.left && top == other.top && right == other.right &&
           bottom == other.bottom && least == other.least;
}

template <class Cost>
bool PointTree<Cost>::Node::restsOn(const Item &item) const
{
    const QPointF &at = item.point;
    return item.number == least || at.x() == left || at.x() == right || at.y() == top ||
           at.y() == bottom;
}
