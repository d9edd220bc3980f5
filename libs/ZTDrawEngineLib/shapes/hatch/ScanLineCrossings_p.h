#pragma once

#include <ZTDrawEngineLib/shapes/hatch/EdgeCrossing_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchOutline_p.h>
#include <ZTDrawEngineLib/shapes/hatch/ScanLineLayout_p.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace zthatch {

/** Crossing of one scan line and one edge. */
struct Crossing
{
    QPointF point;
    int edge;
};

/**
 * Crossings of every scan line with every edge, found without testing every pair.
 *
 * An edge is tested only against the scan lines that its extent can meet. What counts as a
 * crossing and where it lies is `QLineF`'s answer alone.
 */
class ScanLineCrossings
{
public:
    ScanLineCrossings(const HatchOutline &outline, const ScanLineLayout &layout);

    /**
     * How many crossings there can be at most on edges whose place is sure; nearly as many are.
     *
     * Edges that are lost in rounding may meet any scan line, and hardly ever do.
     */
    std::int64_t expectedCrossings() const { return m_expectedCount; }

    /** Called with the crossings of one scan line in the order of the edges. False: stop. */
    using Visitor = std::function<bool(const Crossing *crossings, int count)>;

    /** Visits all scan lines in order, those without a crossing too. */
    void visit(const Visitor &visitor);

    /** Whether an edge has had a crossing on any scan line visited. */
    const std::vector<char> &hitEdges() const { return m_isHit; }

private:
    /** Scan lines that an edge may cross: from `first`, `end` not included. */
    struct Run
    {
        int first = 0;
        int end = 0;
    };

    /** Where an end of an edge lies among the scan lines. */
    struct Place
    {
        QPointF point;
        double level = 0.0;
        bool isSure = false; ///< whether the level tells which scan lines the edge may meet

        /** The same number for number: almost the same has another level. */
        bool isAt(const QPointF &other) const
        {
            return point.x() == other.x() && point.y() == other.y();
        }
    };

    Place placeOf(const QPointF &point) const;
    Run runOf(const QLineF &edge, const Place &from, const Place &to);
    void rememberGap(int number);
    int firstAtOrAbove(double level) const;
    int blockEnd(int begin) const;
    void fillBlock(int begin, int end);
    bool fillEdge(int number, int first, int last);

    const HatchOutline &m_outline;
    const ScanLineLayout &m_layout;
    bool m_isSteady = false;
    double m_margin = 0.0;
    double m_linesPerPx = 0.0;     ///< scan lines a pixel of their level, on average
    int m_gap = 0;                 ///< number of a scan line, or of the end
    double m_gapBegin = 0.0;       ///< level of the one before
    double m_gapEnd = 0.0;         ///< its level
    std::vector<Run> m_runs;       ///< by edge
    std::vector<int> m_candidates; ///< by scan line: edges that may cross it
    std::int64_t m_expectedCount = 0;
    std::vector<Crossing> m_crossings; ///< of the block of scan lines at hand
    std::vector<std::size_t> m_starts; ///< by scan line of the block: its first crossing
    std::vector<Crossing *> m_ends;    ///< by scan line of the block: after its last crossing
    std::vector<ScanLine> m_scanLines; ///< by scan line of the block
    std::vector<char> m_isHit;
};

} // namespace zthatch
