#include <ZTDrawEngineLib/items/ZTGraphicsRectItem.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTRectShape.h>

ZTGraphicsRectItem::ZTGraphicsRectItem() { shape = new ZTRectShape; }

void ZTGraphicsRectItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTRectShape>(source)) {
        replaceShape(copied);
        rebuildShape();
    }
}
