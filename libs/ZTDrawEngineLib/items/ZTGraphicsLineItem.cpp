#include <ZTDrawEngineLib/items/ZTGraphicsLineItem.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTLineShape.h>

ZTGraphicsLineItem::ZTGraphicsLineItem() : m_lineShape(new ZTLineShape) { shape = m_lineShape; }

void ZTGraphicsLineItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTLineShape>(source)) {
        replaceShape(copied);
        m_lineShape = copied;
        rebuildShape();
    }
}

double ZTGraphicsLineItem::angle() const { return m_lineShape->angle(); }

void ZTGraphicsLineItem::setAngle(double angleDeg)
{
    prepareGeometryChange();
    m_lineShape->setAngle(angleDeg);
    updateResizeItem();
}

double ZTGraphicsLineItem::length() const { return m_lineShape->length(); }

void ZTGraphicsLineItem::setLength(double lengthMm)
{
    prepareGeometryChange();
    m_lineShape->setLength(lengthMm);
    updateResizeItem();
}
