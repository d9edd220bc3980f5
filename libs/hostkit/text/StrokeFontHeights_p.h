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

/**
 * The heights in which a reader without text items of its own shows the fonts: those that the
 * topmost text in each asks for, by file name. Texts that do not set their own height ask for the
 * one that their fonts have now.
 */
QVector<DrawingFontHeight> recordedFontHeights(const QVector<ZTAbstractGraphicsItem *> &items);

/** Gives the fonts these heights, for every text in them; fonts that are not here are left out. */
void setStrokeFontHeights(const QVector<DrawingFontHeight> &heights);

} // namespace hostkit
