#pragma once

#include <vectorkit/VectorPath.h>

#include <QtGui/QPainterPath>

namespace vectorkit {

/**
 * The runs of a painter's path, its curves with them. A run that ends exactly where it began is
 * closed.
 *
 * Frame: that of the path, which is taken for millimetres. Failure: none; single points are left
 * out.
 */
QVector<VectorPath> pathsOf(const QPainterPath &path);

/** All of them as one painter's path: lines and cubics as they are, arcs as cubics. */
QPainterPath painterPathOf(const QVector<VectorPath> &paths);

/** Box of the true curves of all of them, with a width or height of 0 too; null for none. */
QRectF boundsOf(const QVector<VectorPath> &paths);

} // namespace vectorkit
