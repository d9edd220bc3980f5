#pragma once

#include <studio/shapes/ShapeItems.h>

namespace studio {

/**
 * Copies of shapes with all that they are, above everything, in the same stacking order, moved by a
 * way. They are in the same groups as their sources. Frame: scene pixels.
 */
ShapeItems copiesOf(const ShapeItems &sources, ZTShapeManager &manager, const QPointF &byPx);

/** How shapes are repeated on a circle. */
struct CircleArray
{
    QPointF centrePx;        ///< of the circle
    int count = 8;           ///< places in all, that of the sources included; 2 or more
    double totalDeg = 360.0; ///< from the first place to the last, or around; positive is
                             ///< counter-clockwise on the screen
    bool turns = true;       ///< copies are turned with the circle; else they stay upright

    /** From one place to the next; a whole turn has as many steps as places, a part one less. */
    double stepDeg() const;
};

/** Limit: places of one circle. */
constexpr int kMostOnCircle = 10000;

/** Copies of shapes at all places of a circle but the first, where the sources are. */
ShapeItems copiesAround(const ShapeItems &sources, ZTShapeManager &manager,
                        const CircleArray &circle);

} // namespace studio
