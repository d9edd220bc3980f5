#include <ZTDrawEngineLib/model/ZTShapeManager.h>

#include <ZTDrawEngineLib/common/PackedFields_p.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsItemFactory.h>
#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>
#include <ZTDrawEngineLib/model/ZTItemModel.h>
#include <ZTDrawEngineLib/shapes/Reach_p.h>
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

/** What stands in front of a shape's own record: the item's kind and its position. */
void writeHead(QDataStream &stream, const ZTAbstractGraphicsItem &item)
{
    const auto kind = static_cast<quint8>(item.getShapeType());
    using Fields = PackedFields<sizeof(quint8) + 2 * sizeof(double)>;
    if (!Fields::suits(stream)) {
        stream << kind << item.pos();
        return;
    }
    Fields fields(stream);
    fields << kind << item.pos();
    fields.writeTo(stream);
}

} // namespace

void ZTShapeManager::save(QDataStream &stream)
{
    ZTVariantTextManager::getInstance()->save(stream);
    const QVector<const ZTAbstractGraphicsItem *> shapeItems = shapeItemsFromBelow(*m_scene);
    stream << m_nextShapeId << static_cast<qint32>(shapeItems.size());
    for (const ZTAbstractGraphicsItem *item : shapeItems) {
        writeHead(stream, *item);
        item->getShapeBase()->save(stream);
    }
}

bool ZTShapeManager::load(QDataStream &stream)
{
    ZTVariantTextManager::getInstance()->load(stream);
    qint32 count = 0;
    stream >> m_nextShapeId >> count;
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
    // What lies nowhere would put no numbers into the mark data.
    item->setPos(isWithinReach(posPx) ? posPx : QPointF());
    item->setShapeType(type);
    m_scene->addItem(item);
    m_itemModel->insert(type, item);
}
