#pragma once

#include <QtCore/QLineF>
#include <QtCore/QRectF>
#include <QtCore/Qt>

namespace studio {

/** A drag of the mouse that draws a shape. Frame: scene pixels. */
struct ToolDrag
{
    QPointF fromPx;                  ///< where the button went down
    QPointF toPx;                    ///< where the mouse is now
    bool keepsProportions = false;   ///< the shape's own ones; of a line: steps of 15 degrees
    bool isFromCentre = false;       ///< the drag began in the middle of the shape
    QSizeF proportions = {1.0, 1.0}; ///< width to height, each greater than 0
};

/** Sets what the keys say: Shift keeps proportions, Alt draws from the centre. */
void readKeys(Qt::KeyboardModifiers keys, ToolDrag *drag);

/**
 * The box that a drag spans. With proportions kept it is the smallest one that reaches as far as
 * the mouse in both directions, and it grows to the side on which the mouse is.
 */
QRectF draggedBox(const ToolDrag &drag);

/** The line that a drag spans; one in steps is as long as the mouse is far. */
QLineF draggedLine(const ToolDrag &drag);

} // namespace studio
