#pragma once

#include <vectorkit/VectorPath.h>

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QVector>

#include <optional>

namespace vectorkit {

/** A node of a run: where it is, and where the curves before and after it lean to. */
struct PathNode
{
    QPointF place;         ///< where it is
    QPointF in;            ///< control point before it; at `place`: none
    QPointF out;           ///< control point after it; at `place`: none
    bool isSmooth = false; ///< both control points stay in line
};

/** Nodes without a jump. Between two of them is a straight line where neither leans to the other.
 */
struct NodeRun
{
    QVector<PathNode> nodes; ///< in their order; two at least, or one of a loop
    bool isClosed = false;   ///< the last one leads to the first
};

/** Which node; or which piece, by the node that it begins at. */
struct NodeRef
{
    int run = -1;  ///< index of the run; -1: none
    int node = -1; ///< index among its nodes; -1: none

    bool operator==(const NodeRef &other) const { return run == other.run && node == other.node; }
    bool operator!=(const NodeRef &other) const { return !(*this == other); }
    bool operator<(const NodeRef &other) const
    {
        return run != other.run ? run < other.run : node < other.node;
    }
};

inline uint qHash(const NodeRef &ref, uint seed = 0)
{
    return ::qHash(qMakePair(ref.run, ref.node), seed);
}

/** The same references, to be asked quickly whether one is among them. */
inline QSet<NodeRef> setOf(const QVector<NodeRef> &refs) { return {refs.begin(), refs.end()}; }

/** A place on a piece. */
struct PlaceOnPath
{
    NodeRef piece;
    double part = 0.0; ///< 0 at its beginning, 1 at its end
    QPointF place;     ///< where it is
};

/**
 * Paths as people edit them: runs of nodes. A value; what an edit makes of it is told by `paths`.
 *
 * Frame: millimetres. Range: references are to what there is; edits leave alone what makes no
 * sense for them and say so by their result. Every edit but a move makes older references void.
 */
class NodePaths
{
public:
    NodePaths() = default;

    /** Arcs become curves. */
    explicit NodePaths(const QVector<VectorPath> &paths);

    /** Runs of one node are left out, but for loops. */
    QVector<VectorPath> paths() const;

    /** All runs. Owner: these paths; good until the next edit. */
    const QVector<NodeRun> &runs() const { return m_runs; }

    /** The node that a reference names. Owner: as of `runs`. */
    const PathNode &node(const NodeRef &ref) const { return m_runs[ref.run].nodes[ref.node]; }

    /** How many nodes all runs have together. */
    int nodeCount() const;

    /** The node after one, around a closed run; none after the end of an open one. */
    std::optional<NodeRef> next(const NodeRef &ref) const;

    /** The place on the paths nearest to a point, if it is within reach. */
    std::optional<PlaceOnPath> nearest(const QPointF &point, double withinMm) const;

    /** Moves nodes with what leans on them. */
    void move(const QVector<NodeRef> &nodes, const QPointF &way);

    /** Moves the control point after (`isOut`) or before a node; a smooth one turns the other. */
    void moveControl(const NodeRef &ref, bool isOut, const QPointF &place);

    /** A node on a piece, whose line it does not change; the new node. */
    NodeRef insert(const PlaceOnPath &place);

    /** Takes nodes out; what is left is joined. Runs left with fewer than two nodes go. */
    void remove(const QVector<NodeRef> &nodes);

    /** Makes two ends of each node: a closed run opens, an open one becomes two. */
    bool breakAt(const QVector<NodeRef> &nodes);

    /** Makes one node, midway, of two ends; of the ends of one run an outline. */
    bool join(const NodeRef &a, const NodeRef &b);

    /** Makes pieces straight; false where all were. */
    bool toLine(const QVector<NodeRef> &pieces);

    /** Makes curves of straight pieces, without a change of their lines; false where none was. */
    bool toCurve(const QVector<NodeRef> &pieces);

    /** Lets the curves before and after a node run through it in one direction; ends cannot. */
    bool smooth(const QVector<NodeRef> &nodes);

    /** The curves before and after go their own ways from now on. */
    bool corner(const QVector<NodeRef> &nodes);

    /**
     * Which nodes are corners though their curves run through them in one direction: what paths
     * cannot tell. Text for `takeCornerMarks`; empty: none is.
     */
    QByteArray cornerMarks() const;

    /** Makes corners of the nodes that were. Marks of other paths, or damaged ones, do nothing. */
    void takeCornerMarks(const QByteArray &marks);

    /** Whether a node is an end of an open run. */
    bool isEnd(const NodeRef &ref) const;

private:
    PathNode &at(const NodeRef &ref) { return m_runs[ref.run].nodes[ref.node]; }
    std::optional<NodeRef> previous(const NodeRef &ref) const;
    void openAt(const NodeRef &ref);
    void splitAt(const NodeRef &ref);
    bool smoothOne(const NodeRef &ref);
    void reverse(int run);

    QVector<NodeRun> m_runs;
};

} // namespace vectorkit
