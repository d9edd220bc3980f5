#include <ZTDrawEngineLib/items/ZTItemFactories.h>

#include <ZTDrawEngineLib/items/ZTGraphicsEllipseItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsLineItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsPolygonItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsRectItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsTdotItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsTextItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsVecGraph_p.h>

#include <utility>

template class ZTSingletonTemplate<ZTRectItemFactory>;
template class ZTSingletonTemplate<ZTEllipseItemFactory>;
template class ZTSingletonTemplate<ZTPolygonItemFactory>;
template class ZTSingletonTemplate<ZTLineItemFactory>;
template class ZTSingletonTemplate<ZTTdotItemFactory>;
template class ZTSingletonTemplate<ZTTextItemFactory>;
template class ZTSingletonTemplate<ZTVecGraphItemFactory>;

ZTAbstractGraphicsItem *ZTRectItemFactory::create() { return new ZTGraphicsRectItem; }

ZTAbstractGraphicsItem *ZTEllipseItemFactory::create() { return new ZTGraphicsEllipseItem; }

ZTAbstractGraphicsItem *ZTPolygonItemFactory::create() { return new ZTGraphicsPolygonItem; }

ZTAbstractGraphicsItem *ZTLineItemFactory::create() { return new ZTGraphicsLineItem; }

ZTAbstractGraphicsItem *ZTTdotItemFactory::create() { return new ZTGraphicsTdotItem; }

ZTAbstractGraphicsItem *ZTTextItemFactory::create() { return new ZTGraphicsTextItem; }

void ZTVecGraphItemFactory::setPath(const QString &path) { m_nextPath = path; }

const QString &ZTVecGraphItemFactory::path() const { return m_nextPath; }

ZTAbstractGraphicsItem *ZTVecGraphItemFactory::create()
{
    auto *item = new ZTGraphicsVecGraph;
    item->setImagePath(std::exchange(m_nextPath, QString()));
    return item;
}
