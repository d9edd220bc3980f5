#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QPointer>
#include <QtCore/QVector>

namespace studio {

using ShapeItem = ZTAbstractGraphicsItem;
using ShapeItems = QVector<ShapeItem *>;

/** The shape items of a scene, lowest first. */
ShapeItems shapeItemsOf(const QGraphicsScene &scene);

/** The selected ones, lowest first, so that what is done to them does not depend on chance. */
ShapeItems selectedShapeItems(const QGraphicsScene &scene);

/** The selected ones as they come, where the order is nothing: sorting thousands takes time. */
ShapeItems selectedInNoOrder(const QGraphicsScene &scene);

/** Box of an item as drawn. Frame: scene pixels. */
QRectF sceneBox(const ShapeItem &item);

/** Box around items as drawn; null for none. Frame: scene pixels. */
QRectF sceneBox(const ShapeItems &items);

/** Whether resizing a shape keeps its proportions. */
bool isAspectLocked(const ShapeItem &item);

/** Whether a shape is an area that can be hatched. */
bool canBeHatched(const ShapeItem &item);

/**
 * Makes `items` the selection, with one `selectionChanged` for all.
 *
 * Items that are null or in no scene are passed over.
 */
void selectOnly(QGraphicsScene &scene, const ShapeItems &items);

/** Items that may be deleted by others at any time. */
QVector<QPointer<ShapeItem>> guarded(const ShapeItems &items);

/** Those of them that still exist. */
ShapeItems stillThere(const QVector<QPointer<ShapeItem>> &items);

} // namespace studio
