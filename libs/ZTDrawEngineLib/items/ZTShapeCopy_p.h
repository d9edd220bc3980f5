#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

/**
 * A copy of the shape behind `source`, if that is a `Shape`; null otherwise.
 *
 * Made before the receiver lets go of its own shape, so that an item may be copied onto itself.
 */
template <class Shape>
Shape *copiedShape(const ZTAbstractGraphicsItem *source)
{
    const auto *shape =
        source != nullptr ? dynamic_cast<const Shape *>(source->getShapeBase()) : nullptr;
    return shape != nullptr ? new Shape(*shape) : nullptr;
}
