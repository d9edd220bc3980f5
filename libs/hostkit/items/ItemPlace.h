#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>

class ZTAbstractGraphicsItem;

namespace hostkit {

// Where a shape stands and how large it is, in millimetres from the scene's origin, y down.
// `addShape` gives every shape the size of its kind; a host that wants another says so here.

/** The box around an item's outline as it stands on the scene. */
QRectF boxMm(const ZTAbstractGraphicsItem &item);

/**
 * Moves an item, as large as it is, until the middle of its box is there.
 *
 * Limit: a drawing keeps the origin of each item in its area; what would leave it stays at the
 * edge.
 */
void moveMiddleTo(ZTAbstractGraphicsItem &item, const QPointF &middleMm);

/**
 * Scales and moves an item until `boxMm` is the box around its outline, and records its size. A
 * turned shape is stretched as it stands. A line along an axis keeps its lack of height or width.
 *
 * Failure: false, and no change, for a box that is not finite or has no area, and for an item
 * without an outline.
 */
bool setBoxMm(ZTAbstractGraphicsItem &item, const QRectF &boxMm);

} // namespace hostkit
