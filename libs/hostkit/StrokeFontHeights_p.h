#pragma once

#include <hostkit/DrawingFile.h>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;
class ZTShapeText;

namespace hostkit {

/** The text behind an item; null for every other kind. */
ZTShapeText *textOf(const ZTAbstractGraphicsItem &item);

/** The shape items of a document, lowest first. */
QVector<ZTAbstractGraphicsItem *> shapeItemsOf(const ZTGraphicsDocument &document);

/** The heights that the stroke fonts of a document's texts have now, by file name. */
QVector<DrawingFontHeight> strokeFontHeights(const ZTGraphicsDocument &document);

/** Gives the fonts these heights, for every text in them; fonts that are not here are left out. */
void setStrokeFontHeights(const QVector<DrawingFontHeight> &heights);

} // namespace hostkit
