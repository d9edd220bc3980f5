#pragma once

#include <hostkit/drawing/DrawingFile.h>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;
class ZTShapeText;

namespace hostkit {

/** The text behind an item; null for every other kind. */
ZTShapeText *textOf(const ZTAbstractGraphicsItem &item);

/** The shape items of a document, lowest first. */
QVector<ZTAbstractGraphicsItem *> shapeItemsOf(const ZTGraphicsDocument &document);

/** The heights that the stroke fonts of the texts among items have now, by file name. */
QVector<DrawingFontHeight> strokeFontHeights(const QVector<ZTAbstractGraphicsItem *> &items);

/** Gives the fonts these heights, for every text in them; fonts that are not here are left out. */
void setStrokeFontHeights(const QVector<DrawingFontHeight> &heights);

} // namespace hostkit
