#pragma once

#include <ZTDrawEngineLib/shapes/hatch/CornerTwins_p.h>

#include <QtCore/QVector>

#include <vector>

namespace zthatch {

/**
 * Walks along the outline, from an edge over edges without crossings to the next one with some.
 *
 * A walk goes from edge to edge wherever the next edge in their order, counted on from the one
 * just taken and wrapping past the polygon's last, starts (along) or ends (against) at the point
 * reached. Where corners coincide that need not be the neighbour. What a walk finds depends on
 * its first edge and its direction alone, so each is gone once.
 */
class OutlineWalks
{
public:
    enum class Direction { Along, Against };

    OutlineWalks(const HatchOutline &outline, const std::vector<char> &hitEdges);

    /** Edge with crossings where the walk from an edge ends; -1 when it would never end. */
    int end(int edge, Direction direction);

    /** Point where the walk from an edge starts. */
    QPointF start(int edge, Direction direction) const;

    /**
     * Appends the edges of the walk that ends at all, each in its own direction, at most `room`.
     * Returns the point that the walk reaches.
     *
     * Kept: also a walk against the edges takes them in their own direction; the mark order of
     * existing hatches rests on it.
     */
    QPointF append(int edge, Direction direction, int room, QVector<QLineF> *lines);

private:
    int firstStep(int edge, Direction direction);
    int nextStep(int edge, Direction direction);
    int stepFrom(int edge, int from, Direction direction);
    int endFrom(int edge, Direction direction);
    bool hasHits(int edge) const { return m_hitEdges[static_cast<std::size_t>(edge)] != 0; }

    const HatchOutline &m_outline;
    const std::vector<char> &m_hitEdges;
    CornerTwins m_twins;
    std::vector<int> m_starts[2]; ///< by direction and edge: where the walk from it ends
    std::vector<int> m_ends[2];   ///< by direction and edge: where a walk that comes upon it ends
};

} // namespace zthatch
