#pragma once

#include <QtCore/QPointF>

#include <vector>

namespace vectorkit {

/** Points that can be switched on and off, and the nearest one that is on. */
class EndTree
{
public:
    /** All points are off at first. Range: finite. */
    explicit EndTree(const std::vector<QPointF> &places);

    void setOn(int point, bool on);

    /** Index of the nearest point that is on, of equal ones the lowest; -1: none is. */
    int nearest(const QPointF &place) const;

private:
    struct Node
    {
        QPointF place;
        int point;
        int on; ///< points that are on in its part of the tree
        bool isOn;
    };
    struct Search
    {
        QPointF place;
        int best;
        double square;
    };
    void build(int low, int high, int depth);
    void search(int low, int high, int depth, Search *search) const;

    std::vector<Node> m_nodes;    ///< each part's middle is its root
    std::vector<int> m_positions; ///< of each point among the nodes
};

} // namespace vectorkit
