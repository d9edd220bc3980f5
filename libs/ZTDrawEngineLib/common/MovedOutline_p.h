#pragma once

#include <QtCore/QPointF>
#include <QtGui/QPainterPath>

namespace ztoutline {

// Letters stand on whole steps of a 64th of a pixel, and so do the points they are made of. That is
// what lets an outline be moved so that it is, to the last bit, what is laid out at its new place.

/** The step on which a letter stands that is put to `point`; what is between two is cut off. */
[[nodiscard]] QPointF onStep(const QPointF &point);

/** Limit: farther out the steps no longer fit into the number that holds them. False for no number.
 */
[[nodiscard]] bool isNear(const QPointF &point);

/** Adds the outline of letters, `by` whole steps away from where it is. */
void addMoved(QPainterPath &path, const QPainterPath &outline, const QPointF &by);

/** Unlike the operator of the class, which takes nearly equal ones for equal. */
[[nodiscard]] bool isExactly(const QPainterPath &a, const QPainterPath &b);

} // namespace ztoutline
