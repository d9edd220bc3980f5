#pragma once

#include <studio/shapes/ShapeItems.h>

namespace studio {

/** The text or code behind an item; null for any other shape. */
ZTAbstractGraphicsTextItem *wordsItem(ShapeItem *item);

/**
 * Lets shapes share the counters and lists of a variant text: `first` shows the value that it has,
 * each of the others the next one, and with each part all move on past the values of all.
 *
 * Nothing is recorded for undo. Others than texts and codes are passed over; without variant text
 * in `first` nothing happens.
 * Limit: `hostkit::kMostValuesPerPart` shapes in all.
 */
void shareCounter(ZTAbstractGraphicsTextItem &first, const ShapeItems &others);

} // namespace studio
