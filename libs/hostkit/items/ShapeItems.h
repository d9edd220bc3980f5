#pragma once

#include <QtCore/QVector>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;
class ZTShapeText;
class QGraphicsItem;
class QPointF;

namespace hostkit {

/** The shape items of a document, lowest first. Owner: the document. */
QVector<ZTAbstractGraphicsItem *> shapeItemsOf(const ZTGraphicsDocument &document);

/** Whether an item stands for a two-dimensional or a bar code, by its kind. */
bool isCode(const ZTAbstractGraphicsItem &item);

/** The text behind an item; null for every other kind. Owner: the item. */
ZTShapeText *textOf(const ZTAbstractGraphicsItem &item);

/**
 * Sets an item's place, in scene pixels, to the last bit, the sign of a zero among them. Qt's own
 * setPos leaves an item where it is when the new place is within some 1e-12 of it: what is undone
 * or loaded so comes back almost as it was.
 */
void setPosExactly(QGraphicsItem &item, const QPointF &posPx);

} // namespace hostkit
