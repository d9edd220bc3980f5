#include "SlotItem.h"

#include <hostkit/items/ItemExtras.h>

SlotItem::SlotItem()
{
    shape = new SlotShape;
    hostkit::setItemKind(*this, kKind);
}

void SlotItem::copy(ZTAbstractGraphicsItem *source)
{
    const auto *copied =
        source != nullptr ? dynamic_cast<const SlotShape *>(source->getShapeBase()) : nullptr;
    if (copied == nullptr)
        return;
    replaceShape(new SlotShape(*copied));
    rebuildShape();
}

void SlotItem::setRadiusMm(double radiusMm)
{
    prepareGeometryChange();
    slot().setRadiusMm(radiusMm);
    slot().paint();
    updateResizeItem(); // the selection frame follows
    update();
}

void SlotItemFactory::registerKind()
{
    static SlotItemFactory factory;
    ZTGraphicsItemFactory::regist(ShapeType2String(ShapeType::Point), &factory);
    ZTGraphicsItemFactory::regist(SlotItem::kKind, &factory);
}
