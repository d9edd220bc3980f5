#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

// Numbers end: where a text has no value for a further part, the drawing stays with the last part.
// That it was marked is kept with the item, so that no program marks its number once more.

/** The variant text that an item shows, or null. Owner: the item's shape. */
ZTVariantText *variantTextOf(const ZTAbstractGraphicsItem &item);

/** How far the variant text of an item is, whatever day it is: ASCII; empty for one without. */
QByteArray partProgress(const ZTAbstractGraphicsItem &item);

/** Moves a text of an item on to the next part; false where it has no value of its own for it. */
bool moveToNextPart(const ZTAbstractGraphicsItem &item, ZTVariantText *text);

/** Whether an item's text has no value for a further part; false for one without. */
bool isAtLastPart(const ZTAbstractGraphicsItem &item);

/** Whether an item's present part was marked as the last one that there was. */
bool isLastPartMarked(const ZTAbstractGraphicsItem &item);

/** Notes that the present part of an item was marked as the last one, or takes the note away. */
void setLastPartMarked(ZTAbstractGraphicsItem &item, bool isMarked);

/** Whether an item's text has shown all its values, and all were marked. */
bool isUsedUp(const ZTAbstractGraphicsItem &item);

} // namespace hostkit
