#pragma once

#include <ZTDrawEngineLib/shapes/hatch/HatchOutline_p.h>

#include <vector>

namespace zthatch {

/**
 * Corners of an outline that lie at the same point as other corners of their polygon.
 *
 * Corner i of a polygon is where its edge i starts and the edge before it ends. Corners are
 * counted from 0 in each polygon. A polygon is looked at when it is first asked about.
 */
class CornerTwins
{
public:
    explicit CornerTwins(const HatchOutline &outline);

    /**
     * First corner at the same point as `corner`, counted from `start` on and wrapping past the
     * last one; the corner itself counts. -1 for a corner that is not finite.
     */
    int firstFrom(int polygon, int corner, int start);

private:
    void prepare(int polygon);
    QPointF pointOf(int edge) const { return m_outline.edge(edge).p1(); }

    /** Corners that may be one point, as positions in `members`. Empty: only the corner itself. */
    struct Group
    {
        int begin = 0;
        int end = 0;
    };

    const HatchOutline &m_outline;
    std::vector<char> m_isPrepared; ///< by polygon
    std::vector<Group> m_groups;    ///< by edge, for the corner where it starts
    std::vector<int> m_members;     ///< corners of all groups, growing within each
};

} // namespace zthatch
