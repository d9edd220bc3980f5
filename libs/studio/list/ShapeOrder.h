#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QSet>

namespace studio {

/** Ways to bring shapes to another place in the order of marking. */
enum class OrderChange {
    Raise,   ///< one place earlier
    Lower,   ///< one place later
    ToFirst, ///< marked before all others
    ToLast,  ///< marked after all others
    Reverse  ///< the places of the shapes turned around; of all of them for fewer than two
};

/** The shapes of a drawing in the order of marking, which is from above: first marked first. */
ShapeItems markingOrder(const QGraphicsScene &scene);

/**
 * What becomes of an order when some of its shapes are brought elsewhere. Among each other they
 * keep their order, but for reversing.
 */
ShapeItems reordered(const ShapeItems &order, const QSet<const ShapeItem *> &moved,
                     OrderChange change);

/** The order with some of its shapes brought together in front of the shape at a place in it. */
ShapeItems broughtBefore(const ShapeItems &order, const QSet<const ShapeItem *> &moved, int place);

/** Gives a drawing an order of marking, as one undo step; none if it has that order. */
void setMarkingOrder(ZTGraphicsDocument &document, const ShapeItems &order);

} // namespace studio
