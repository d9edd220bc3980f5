#include <hostkit/items/ShapeItems.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QGraphicsItem>

#include <cmath>

namespace hostkit {

namespace {

bool isSameBits(double a, double b) { return a == b && std::signbit(a) == std::signbit(b); }

/** What is never almost the number, and within reach where that is. */
double elsewhere(double number) { return number / 2.0 - std::copysign(1.0, number); }

} // namespace

QVector<ZTAbstractGraphicsItem *> shapeItemsOf(const ZTGraphicsDocument &document)
{
    QVector<ZTAbstractGraphicsItem *> found;
    for (QGraphicsItem *candidate : document.itemMag()->scene()->items(Qt::AscendingOrder)) {
        if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate))
            found << item;
    }
    return found;
}

bool isCode(const ZTAbstractGraphicsItem &item)
{
    return item.getShapeType() == ShapeType::QRCode || item.getShapeType() == ShapeType::BarCode;
}

ZTShapeText *textOf(const ZTAbstractGraphicsItem &item)
{
    return dynamic_cast<ZTShapeText *>(item.getShapeBase());
}

void setPosExactly(QGraphicsItem &item, const QPointF &posPx)
{
    item.setPos(posPx);
    if (isSameBits(item.x(), posPx.x()) && isSameBits(item.y(), posPx.y()))
        return;
    item.setPos(elsewhere(posPx.x()), elsewhere(posPx.y()));
    item.setPos(posPx);
}

} // namespace hostkit
