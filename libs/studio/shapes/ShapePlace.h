#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QLineF>

#include <optional>

namespace studio {

/** Where a new shape comes to stand, and how large. Frame: scene pixels. */
struct ShapePlace
{
    QRectF boxPx;                 ///< without extent: its top left, at the size the shape has
    std::optional<QLineF> linePx; ///< of a line: its ends, in the place of the box
};

/**
 * Brings a shape to its place: the box of its outline becomes the box, or a line gets its ends.
 *
 * A shape whose proportions are locked, and a text, are not stretched: a text gets the height of
 * the box, the other the largest size that fits into it; both begin at the top left.
 */
void placeShape(ShapeItem &item, const ShapePlace &place);

/** Moves a shape so that the box of its outline has its top left there. */
void moveTopLeft(ShapeItem &item, const QPointF &topLeftPx);

/**
 * The box of a size, as near to the middle of an area as may be, that meets no shape; none if all
 * of the area is taken. Shapes keep a little distance to it.
 */
std::optional<QRectF> freePlace(const QGraphicsScene &scene, const QSizeF &sizePx,
                                const QRectF &areaPx, const ShapeItem *apart);

/** Whether the drawing of a line takes its ends. */
bool isLine(const ShapeItem &item);

} // namespace studio
