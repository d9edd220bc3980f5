#pragma once

#include <studio/commands/MoveItemsCommand.h>
#include <studio/groups/Groups.h>

namespace studio {

// Where units go. Frame: scene pixels. Boxes are those of the outlines as drawn. A unit that stays
// has no move.

/** To an edge or the middle of a box; both directions at once for `Qt::AlignCenter`. */
QVector<ItemMove> alignedMoves(const QVector<ShapeUnit> &units, Qt::Alignment alignment,
                               const QRectF &withinPx);

/** What is made equal between units. */
enum class Spread {
    Centres, ///< the distance from middle to middle
    Gaps     ///< the space from edge to edge
};

/**
 * Spreads units evenly between the outermost two, which stay; nothing for fewer than three. Where
 * there is not room enough, equal gaps become equal overlaps.
 */
QVector<ItemMove> spreadMoves(const QVector<ShapeUnit> &units, Qt::Orientation direction,
                              Spread spread);

/** Moves all of them as one, their common middle to a place. */
QVector<ItemMove> centredMoves(const QVector<ShapeUnit> &units, const QPointF &placePx);

/** The box around all units; null for none. */
QRectF boxAround(const QVector<ShapeUnit> &units);

} // namespace studio
