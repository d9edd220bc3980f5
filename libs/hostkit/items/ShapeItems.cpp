#include <hostkit/items/ShapeItems.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

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

} // namespace hostkit
