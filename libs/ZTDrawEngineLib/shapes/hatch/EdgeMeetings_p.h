#pragma once

#include <ZTDrawEngineLib/shapes/hatch/HatchOutline_p.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace zthatch {

/**
 * Which edges with crossings an edge of the same polygon meets.
 *
 * What meets is `QLineF`'s answer with the asking edge as receiver; this class only spares it most
 * of the questions. A polygon is looked at when it is first asked about.
 */
class EdgeMeetings
{
public:
    EdgeMeetings(const HatchOutline &outline, const std::vector<char> &hitEdges);

    /** Edges that one edge meets. */
    struct Meetings
    {
        bool isKnown = false;
        bool isCrowded = false; ///< too many to list
        std::vector<int> edges;
    };

    /** The edges that an edge meets, remembered from the first time on. */
    const Meetings &of(int edge);

    /** Calls `visit` for every edge that an edge may meet, some more than once, others too. */
    void forEachCandidate(int edge, const std::function<void(int)> &visit);

private:
    struct Box
    {
        double left, top, right, bottom;
    };

    /** Place of a straight line in the plane, coarse: its direction and its distance. */
    struct Carrier
    {
        std::int64_t direction;
        std::int64_t distance;
        bool operator<(const Carrier &other) const;
    };

    struct CarriedEdge
    {
        Carrier carrier;
        int edge;
    };

    struct PolygonIndex
    {
        bool isReady = false;
        bool isTame = true; ///< no product of extents overflows
        double size = 0.0;  ///< diagonal of the box around the edges
        QPointF centre;
        std::vector<int> edges;     ///< with crossings, in order
        std::vector<int> vanishing; ///< of these, those too short for the index to know
        std::vector<Box> tree;      ///< heap: box of node n holds those of 2n and 2n + 1
        int leafCount = 0;
        std::vector<CarriedEdge> carriers; ///< sorted
    };

    PolygonIndex &indexOf(int polygon);
    void prepare(int polygon, PolygonIndex *index) const;
    void buildTree(PolygonIndex *index) const;
    void buildCarriers(PolygonIndex *index) const;
    Box boxOf(int edge) const;
    Carrier carrierOf(int edge, const PolygonIndex &index) const;
    static bool overlap(const Box &a, const Box &b);
    static Box united(const Box &a, const Box &b);
    static bool isVanishing(const QLineF &line);

    void visitNear(const PolygonIndex &index, const Box &box, int node,
                   const std::function<void(int)> &visit) const;
    void visitInLine(const PolygonIndex &index, const Carrier &carrier,
                     const std::function<void(int)> &visit) const;

    const HatchOutline &m_outline;
    const std::vector<char> &m_hitEdges;
    std::vector<PolygonIndex> m_indexes; ///< by polygon
    std::vector<Meetings> m_known;       ///< by edge
};

} // namespace zthatch
