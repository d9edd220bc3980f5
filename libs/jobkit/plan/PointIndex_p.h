#pragma once

#include <QtCore/QPointF>

#include <vector>

namespace jobkit {

/**
 * Points, each with an owner, among which the nearest are found in the time of a logarithm; owners
 * can be taken away.
 */
class PointIndex
{
public:
    struct Entry
    {
        QPointF at;
        int owner = 0; ///< from 0
        int tag = 0;   ///< the caller's
    };

    explicit PointIndex(std::vector<Entry> points);

    /** The nearest point, of those at the same distance the first given; null: none is left. */
    const Entry *nearest(const QPointF &to) const;

    /** The owners of the nearest points, each once and never `but`, nearest first. */
    std::vector<int> nearestOwners(const QPointF &to, int most, int but) const;

    /** Takes away all points of an owner. */
    void remove(int owner);

private:
    struct Node
    {
        double left, top, right, bottom;
        int from, to;
        int alive;
        int parent;
        int low = -1;
        int high = -1;
    };
    struct Found
    {
        double squared;
        int point;
    };

    int build(int from, int to, int parent);
    double squaredDistance(const Node &node, const QPointF &to) const;
    void search(int node, const QPointF &to, Found *best) const;
    void collect(int node, const QPointF &to, int but, size_t most,
                 std::vector<Found> *found) const;

    std::vector<Entry> m_entries;
    std::vector<int> m_indexes; ///< of entries, in the order of the leaves
    std::vector<int> m_leafOf;  ///< of each entry
    std::vector<char> m_isGone;
    std::vector<std::vector<int>> m_ofOwner;
    std::vector<Node> m_nodes;
};

} // namespace jobkit
