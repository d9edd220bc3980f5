#pragma once

#include <studio/ShapeItems.h>

namespace studio {

/**
 * Gathers mark data piece by piece, so that a window stays alive meanwhile. The result is the one
 * of the shape manager's `getShapeLines` for the same items.
 *
 * An item that is deleted on the way is left out.
 */
class MarkGraphBuilder
{
public:
    /** All shapes of the drawing, or the selected ones, topmost first. */
    MarkGraphBuilder(ZTShapeManager &manager, bool selectionOnly);

    /** Works for about `budgetMs`; false when all is gathered. */
    bool work(int budgetMs);

    int done() const { return next; }
    int total() const { return items.size(); }

    /** The gathered objects in the order of `ZTPointSort`. Once, at the end. */
    ZTMarkGraph takeSorted();

private:
    ZTShapeManager &manager;
    QVector<QPointer<ShapeItem>> items;
    int next = 0;
    ZTMarkGraph graph;
};

} // namespace studio
