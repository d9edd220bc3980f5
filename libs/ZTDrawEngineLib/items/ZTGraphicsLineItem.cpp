#include <ZTDrawEngineLib/items/ZTGraphicsLineItem.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTLineShape.h>

ZTGraphicsLineItem::ZTGraphicsLineItem() : lineShape(new ZTLineShape) { shape = lineShape; }

void ZTGraphicsLineItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTLineShape>(source)) {
        replaceShape(copied);
        lineShape = copied;
        rebuildShape();
    }
}

double ZTGraphicsLineItem::angle() const { return lineShape->angle(); }

void ZTGraphicsLineItem::setAngle(double angleDeg)
{
    prepareGeometryChange();
    lineShape->setAngle(angleDeg);
    updateResizeItem();
}

double ZTGraphicsLineItem::length() const { return lineShape->length(); }

void ZTGraphicsLineItem::setLength(double lengthMm)
{
    prepareGeometryChange();
    lineShape->setLength(lengthMm);
    updateResizeItem();
}
