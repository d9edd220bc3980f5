#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <QtCore/QLineF>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>

namespace zthatch {

/** Hatch of an outline, as `ZTShapeBase::fillULine` tells. */
QVector<QLineF> hatchLines(const QPainterPath &outlinePx, FillType type, double spacPx,
                           double angleDeg);

} // namespace zthatch
