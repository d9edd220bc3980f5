#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <QtCore/QLineF>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>

namespace testsupport {

/**
 * Hatch of an outline by the plain way: every scan line against every edge, every row against
 * every later one.
 *
 * The product must give the same lines to the last bit, only sooner. Nothing here is shared with
 * it, so that a mistake there cannot hide itself.
 */
QVector<QLineF> plainHatch(const QPainterPath &linesPx, FillType type, double spac, double angle);

} // namespace testsupport
