#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

/**
 * Mark data of one shape, from fresh geometry: the shape is rebuilt in every case.
 *
 * @param posPx place of the shape on the scene, in scene pixels
 * @param scale mark units of one scene pixel, in x and y
 *
 * Outline only if the fill parameters enable the border, hatch only if they name a style. The
 * extent keeps its sign under a negative scale.
 */
ZTMarkObject makeMarkObject(ZTShapeBase &shape, const QPointF &posPx, const QSizeF &scale);

/** The same object at another place. Frame: mark units. */
ZTMarkObject movedMarkObject(const ZTMarkObject &object, const QPointF &byMark);

} // namespace hostkit
