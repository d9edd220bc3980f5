#include <ZTDrawEngineLib/items/ZTGraphicsEllipseItem.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTEllipseShape.h>

ZTGraphicsEllipseItem::ZTGraphicsEllipseItem() { shape = new ZTEllipseShape; }

void ZTGraphicsEllipseItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTEllipseShape>(source)) {
        replaceShape(copied);
        rebuildShape();
    }
}
