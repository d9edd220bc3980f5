#include <ZTDrawEngineLib/model/ZTShapeManager.h>

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsItemFactory.h>
#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>
#include <ZTDrawEngineLib/model/ZTItemModel.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>
#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>

#include <QtCore/QDataStream>

namespace {

/** The shape items of a scene, bottom first. The frame and foreign items are none. */
QVector<const ZTAbstractGraphicsItem *> shapeItemsFromBelow(const QGraphicsScene &scene)
{
    QVector<const ZTAbstractGraphicsItem *> found;
    for (const QGraphicsItem *candidate : scene.items(Qt::AscendingOrder)) {
        if (const auto *item = dynamic_cast<const ZTAbstractGraphicsItem *>(candidate))
            found << item;
    }
    return found;
}

} // namespace

void ZTShapeManager::save(QDataStream &stream)
{
    ZTVariantTextManager::getInstance()->save(stream);
    const QVector<const ZTAbstractGraphicsItem *> shapeItems = shapeItemsFromBelow(*m_scene);
    stream << nextShapeId << static_cast<qint32>(shapeItems.size());
    for (const ZTAbstractGraphicsItem *item : shapeItems) {
        stream << static_cast<quint8>(item->getShapeType()) << item->pos();
        item->getShapeBase()->save(stream);
    }
}

bool ZTShapeManager::load(QDataStream &stream)
{
    ZTVariantTextManager::getInstance()->load(stream);
    qint32 count = 0;
    stream >> nextShapeId >> count;
    for (qint32 i = 0; i < count; ++i)
        loadItem(stream);
    m_scene->update(QRectF());
    return true;
}

// Kept: a kind without a factory leaves its record unread, so that what follows is out of step. A
// file around the stream is what keeps such data away from here.
void ZTShapeManager::loadItem(QDataStream &stream)
{
    quint8 kind = 0;
    stream >> kind;
    const auto type = static_cast<ShapeType>(kind);
    ZTAbstractGraphicsItem *item = ZTGraphicsItemFactory::create(ShapeType2String(type));
    if (item == nullptr)
        return;
    QPointF posPx;
    stream >> posPx;
    item->load(stream);
    item->setPos(posPx);
    item->setShapeType(type);
    m_scene->addItem(item);
    m_itemModel->insert(type, item);
}
