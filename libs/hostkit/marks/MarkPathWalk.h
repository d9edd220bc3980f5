#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

/** Where a head moves without marking. */
enum class JumpKind {
    InsideObject,  ///< from one piece of an object to its next
    BetweenObjects ///< from the last piece of an object to the first of a later one
};

/**
 * Is told what a marking head does, in its order. Every operation does nothing unless overridden.
 *
 * Frame: mark units.
 */
class MarkPathVisitor
{
public:
    virtual ~MarkPathVisitor();

    /** An outline is traced from its first point to its last. Never empty; one point marks a dot.
     */
    virtual void polyline(const QPolygonF &pointsMark);

    /** A hatch line is marked from p1 to p2. */
    virtual void hatchLine(const QLineF &lineMark);

    /** The head moves on without marking. Not told where the next piece begins on the spot. */
    virtual void jump(const QLineF &lineMark, JumpKind kind);
};

/**
 * Walks a graph the way a head follows it: object by object, of each one its polylines in order
 * and then its hatch lines in order. A jump is the straight way from the end of one piece to the
 * start of the next; the way to the very first piece is none. Empty polylines are passed over.
 */
void walkMarkPath(const ZTMarkGraph &graph, MarkPathVisitor &visitor);

} // namespace hostkit
