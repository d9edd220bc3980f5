#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

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

/**
 * Whether the outline is made of points on steps, or half way between, and of curves that move:
 * with one control point on a step, from which the path made two, or with two that are on steps
 * themselves. Fonts have either kind; those with one have points half way between two of them.
 */
[[nodiscard]] ZTDRAWENGINELIB_PRIVATE_EXPORT bool isMovable(const QPainterPath &outline);

/** Adds the outline of letters, which is movable, `by` whole steps away from where it is. */
ZTDRAWENGINELIB_PRIVATE_EXPORT void addMoved(QPainterPath &path, const QPainterPath &outline,
                                             const QPointF &by);

} // namespace ztoutline
