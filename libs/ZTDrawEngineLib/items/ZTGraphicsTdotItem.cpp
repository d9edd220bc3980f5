#include <ZTDrawEngineLib/items/ZTGraphicsTdotItem.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>

ZTGraphicsTdotItem::ZTGraphicsTdotItem() { shape = new ZTTdotShape; }

void ZTGraphicsTdotItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTTdotShape>(source)) {
        replaceShape(copied);
        rebuildShape();
    }
}
