#include <ZTDrawEngineLib/items/ZTGraphicsPolygonItem.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTPolygonShape.h>

namespace {
constexpr int kMinSideCount = 3;
}

ZTGraphicsPolygonItem::ZTGraphicsPolygonItem() : polygonShape(new ZTPolygonShape)
{
    shape = polygonShape;
}

void ZTGraphicsPolygonItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTPolygonShape>(source)) {
        replaceShape(copied);
        polygonShape = copied;
        rebuildShape();
    }
}

int ZTGraphicsPolygonItem::getSideCount() const { return polygonShape->getSideCount(); }

void ZTGraphicsPolygonItem::setSideCount(int count)
{
    prepareGeometryChange();
    polygonShape->setSideCount(qMax(count, kMinSideCount));
    update();
    polygonShape->paint();
    updateResizeItem();
}
