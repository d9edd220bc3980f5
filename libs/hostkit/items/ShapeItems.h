#pragma once

#include <QtCore/QVector>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;
class ZTShapeText;

namespace hostkit {

/** The shape items of a document, lowest first. Owner: the document. */
QVector<ZTAbstractGraphicsItem *> shapeItemsOf(const ZTGraphicsDocument &document);

/** The text behind an item; null for every other kind. Owner: the item. */
ZTShapeText *textOf(const ZTAbstractGraphicsItem &item);

} // namespace hostkit
