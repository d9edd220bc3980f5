#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

/** Id that the texts of commands name; -1 for an item or shape that is not there. */
inline int shapeIdOf(const ZTAbstractGraphicsItem *item)
{
    const ZTShapeBase *shape = item != nullptr ? item->getShapeBase() : nullptr;
    return shape != nullptr ? shape->getId() : -1;
}
