#include <ZTDrawEngineLib/items/ZTGraphicsPolygonItem.h>

#include <ZTDrawEngineLib/items/ZTShapeCopy_p.h>
#include <ZTDrawEngineLib/shapes/ZTPolygonShape.h>

namespace {
constexpr int kMinSideCount = 3;
}

ZTGraphicsPolygonItem::ZTGraphicsPolygonItem() : m_polygonShape(new ZTPolygonShape)
{
    shape = m_polygonShape;
}

void ZTGraphicsPolygonItem::copy(ZTAbstractGraphicsItem *source)
{
    if (auto *copied = copiedShape<ZTPolygonShape>(source)) {
        replacePolygonShape(copied);
        rebuildShape();
    }
}

void ZTGraphicsPolygonItem::replacePolygonShape(ZTPolygonShape *replacement)
{
    if (replacement == nullptr || replacement == m_polygonShape)
        return;
    replaceShape(replacement);
    m_polygonShape = replacement;
}

int ZTGraphicsPolygonItem::getSideCount() const { return m_polygonShape->getSideCount(); }

void ZTGraphicsPolygonItem::setSideCount(int count)
{
    prepareGeometryChange();
    m_polygonShape->setSideCount(qMax(count, kMinSideCount));
    update();
    m_polygonShape->paint();
    updateResizeItem();
}
