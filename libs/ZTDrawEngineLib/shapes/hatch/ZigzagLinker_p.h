#pragma once

#include <ZTDrawEngineLib/shapes/hatch/EdgeMeetings_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchGeometry_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchOutline_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchRows_p.h>
#include <ZTDrawEngineLib/shapes/hatch/OutlineWalks_p.h>
#include <ZTDrawEngineLib/shapes/hatch/RowLists_p.h>

#include <QtCore/QVector>

#include <memory>
#include <vector>

namespace zthatch {

/**
 * Strings hatch segments together into zigzags, along the outline where need be.
 *
 * A zigzag begins with the first row not yet linked and goes on to the first later row that the
 * outline leads to: on the same edge, round the corner where two edges meet, or along edges
 * without crossings. Every second row is taken backwards.
 */
class ZigzagLinker
{
public:
    ZigzagLinker(const HatchOutline &outline, const std::vector<char> &hitEdges,
                 const HatchRows &rows);

    /** Appends all zigzags; stops soon after `limit` lines are there. */
    void link(int limit, QVector<QLineF> *lines);

private:
    /** How a row can be joined to the one before. */
    enum class Joint {
        None,     ///< not at all
        Blocked,  ///< the walk comes upon another part of the hatch
        Stop,     ///< the zigzag ends with the row before
        SameEdge, ///< along the edge that both rows end at
        Corner,   ///< through the point where the edges of both meet
        Walk      ///< along the outline
    };

    /** Which ends of the rows the zigzag has reached. */
    enum Reached { AtSecond = 0, AtFirst = 1 };

    /** How the row found last is joined. */
    struct Found
    {
        Joint joint = Joint::None;
        QPointF corner; ///< of a joint through one
    };

    const HatchRow &at(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    const RowEdges &edgesOf(int row) const { return m_edges[static_cast<std::size_t>(row)]; }
    const QPointF &reachedPoint(int row) const;
    int reachedEdge(int row) const;
    Joint jointOf(int row, int next, QPointF *corner);
    Joint walkJoint(int row, int next);
    Side walkSide(int row) const;
    OutlineWalks::Direction walkDirection(Side side) const;
    bool canJoin(int row, int next);

    int nextOf(int row);
    bool isNearestWorthATrial();
    int nextOnPolygon(int row, int end);
    int nextBeforeStop(int row);
    int nextInCrowd(int row, int best);
    int bestOnSameEdge(int row);
    int bestOn(int edge, int row, int best);
    RowLists &polygonLists();
    RowLists &edgeLists();

    void appendZigzag(int row);
    void fetchAhead(int row, int next) const;
    void appendJoint(int row, int next);
    void appendRow(int row, bool asItStands);

    const HatchOutline &m_outline;
    const std::vector<HatchRow> &m_rows;
    const std::vector<RowEdges> &m_edges; ///< by row
    std::vector<char> m_isUsed;           ///< by row: linked already
    OutlineWalks m_walks;
    EdgeMeetings m_meetings;
    std::unique_ptr<RowLists> m_lazyPolygonLists[2]; ///< by reached end: rows by its polygon
    std::unique_ptr<RowLists> m_lazyEdgeLists[2];    ///< the same by the edge it lies on
    int m_trialsLeft; ///< of the nearest row; one more for each that succeeds
    Reached m_reached = AtSecond;
    Found m_found;
    int m_limit = 0;
    QVector<QLineF> *m_lines = nullptr;
};

} // namespace zthatch
