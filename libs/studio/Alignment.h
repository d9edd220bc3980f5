#pragma once

#include <studio/commands/MoveItemsCommand.h>

namespace studio {

/**
 * Moves that align shapes within the box around them all, by their boxes as drawn: mirrored and
 * turned shapes line up with what the eye sees.
 *
 * @param alignment one of the `Qt::Align...` flags for left, right, top, bottom, the two centres,
 *                  or `Qt::AlignCenter` for both
 * @return only shapes that have to move
 */
QVector<ItemMove> alignedMoves(const ShapeItems &items, Qt::Alignment alignment);

} // namespace studio
