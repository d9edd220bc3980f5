#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <QtCore/QLineF>
#include <QtCore/QList>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

namespace zthatch {

/** Hatch of an outline, as `ZTShapeBase::fillULine` tells. */
QVector<QLineF> hatchLines(const QList<QPolygonF> &polygons, FillType type, double spac,
                           double angleDeg);

} // namespace zthatch
