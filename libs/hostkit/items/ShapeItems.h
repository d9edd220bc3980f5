#pragma once

#include <QtCore/QVector>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;
class ZTShapeText;

namespace hostkit {

/** The shape items of a document, lowest first. Owner: the document. */
QVector<ZTAbstractGraphicsItem *> shapeItemsOf(const ZTGraphicsDocument &document);

/** Whether an item stands for a two-dimensional or a bar code, by its kind. */
bool isCode(const ZTAbstractGraphicsItem &item);

/** The text behind an item; null for every other kind. Owner: the item. */
ZTShapeText *textOf(const ZTAbstractGraphicsItem &item);

} // namespace hostkit
