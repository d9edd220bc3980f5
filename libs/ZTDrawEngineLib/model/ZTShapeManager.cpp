#include <ZTDrawEngineLib/model/ZTShapeManager.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsItemFactory.h>
#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>
#include <ZTDrawEngineLib/model/ZTItemModel.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>
#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>

namespace {

ZTAbstractGraphicsItem *asShapeItem(QGraphicsItem *item)
{
    return dynamic_cast<ZTAbstractGraphicsItem *>(item);
}

QVector<ZTShapeBase *> shapesOf(const QList<QGraphicsItem *> &items)
{
    QVector<ZTShapeBase *> shapes;
    for (QGraphicsItem *candidate : items) {
        if (const ZTAbstractGraphicsItem *item = asShapeItem(candidate))
            shapes << item->getShapeBase();
    }
    return shapes;
}

QSet<QGraphicsItem *> selectedSet(const QList<QGraphicsItem *> &selected)
{
    return {selected.begin(), selected.end()};
}

/** The shape items of a scene that are wanted, lowest first, as deleting them is quickest. */
template <class IsWanted>
QList<ZTAbstractGraphicsItem *> shapeItemsOf(const QGraphicsScene &scene, const IsWanted &isWanted)
{
    QList<ZTAbstractGraphicsItem *> wanted;
    for (QGraphicsItem *candidate : scene.items(Qt::AscendingOrder)) {
        ZTAbstractGraphicsItem *item = asShapeItem(candidate);
        if (item != nullptr && isWanted(candidate))
            wanted << item;
    }
    return wanted;
}

/** Deletes the items of `selected` that stand for no shape, each with its children, once. */
void deleteForeign(const QList<QGraphicsItem *> &selected)
{
    const QSet<QGraphicsItem *> picked = selectedSet(selected);
    const auto goesWithAnAncestor = [&](const QGraphicsItem &item) {
        for (QGraphicsItem *above = item.parentItem(); above; above = above->parentItem()) {
            if (picked.contains(above))
                return true;
        }
        return false;
    };
    QList<QGraphicsItem *> foreign;
    for (QGraphicsItem *candidate : selected) {
        const bool isForeign = candidate != nullptr && asShapeItem(candidate) == nullptr;
        if (isForeign && !goesWithAnAncestor(*candidate))
            foreign << candidate;
    }
    qDeleteAll(foreign);
}

// Kept: a rectangle that does not start at the origin is taken in pixels as it stands.
QPointF anchorPx(const QRectF &rectMm)
{
    if (!rectMm.topLeft().isNull())
        return rectMm.topLeft();
    return ZTCoord::getInstance()->getMm2pixTransform().mapRect(rectMm).center();
}

} // namespace

ZTShapeManager::ZTShapeManager(QObject *parent) : QObject(parent)
{
    m_itemModel = new ZTItemModel(this);
    m_scene = new ZTGraphicsScene(this);
    m_itemModel->setScene(m_scene);
    connect(m_scene, &QGraphicsScene::selectionChanged, m_itemModel,
            &ZTItemModel::sceneSelectChange);
    const auto markPerPx = static_cast<float>(ZTCoord::getInstance()->screen2mark());
    setScale(markPerPx, markPerPx);
}

ZTShapeManager::~ZTShapeManager() = default;

ZTAbstractGraphicsItem *ZTShapeManager::addShape(ShapeType type, const QRectF &rectMm)
{
    ZTAbstractGraphicsItem *item = ZTGraphicsItemFactory::create(ShapeType2String(type));
    if (item == nullptr)
        return nullptr;
    item->setShapeType(type);
    item->setPos(-anchorPx(rectMm));
    insertItem(item);
    return item;
}

void ZTShapeManager::insertItem(ZTAbstractGraphicsItem *item)
{
    if (item == nullptr)
        return;
    item->getShapeBase()->setId(m_nextShapeId);
    m_scene->addItem(item);
    m_itemModel->insert(item->getShapeType(), item);
    // A loaded counter may be the largest there is.
    m_nextShapeId = static_cast<qint32>(static_cast<quint32>(m_nextShapeId) + 1);
}

QList<ZTAbstractGraphicsItem *> ZTShapeManager::addMatrix(int rows, int columns, double dx,
                                                          double dy)
{
    const QList<QGraphicsItem *> selected = m_scene->selectedItems();
    ZTAbstractGraphicsItem *source = selected.isEmpty() ? nullptr : asShapeItem(selected.first());
    QList<ZTAbstractGraphicsItem *> copies;
    if (source == nullptr)
        return copies;
    const QRectF box = source->boundingRect();
    const QPointF origin = source->pos();
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            if (row == 0 && column == 0)
                continue;
            ZTAbstractGraphicsItem *copy = addShape(source->getShapeType(), {0, 0, 10, 10});
            if (copy == nullptr)
                return copies;
            const int id = copy->getShapeBase()->getId();
            copy->setPos(origin.x() + column * (box.width() + dx),
                         origin.y() + row * (box.height() + dy));
            copy->copy(source);
            copy->getShapeBase()->setId(id);
            copies << copy;
        }
    }
    m_scene->update(QRectF());
    return copies;
}

// Works on the selection as it was: taking a row out of the model deselects its item.
void ZTShapeManager::removeSelect()
{
    const QList<QGraphicsItem *> selected = m_scene->selectedItems();
    QVector<int> ids;
    for (const ZTShapeBase *shape : shapesOf(selected))
        ids << shape->getId();
    m_itemModel->remove(ids);
    deleteForeign(selected);
    m_scene->deleteItems(shapeItemsOf(
        *m_scene, [picked = selectedSet(selected)](auto *item) { return picked.contains(item); }));
}

void ZTShapeManager::clear()
{
    m_itemModel->clear();
    m_scene->deleteItems(shapeItemsOf(*m_scene, [](auto *) { return true; }));
    m_nextShapeId = 0;
    ZTVariantTextManager::getInstance()->deleteAll();
}

QVector<ZTShapeBase *> ZTShapeManager::getShapeList()
{
    return shapesOf(m_scene->items(Qt::DescendingOrder));
}

QVector<ZTShapeBase *> ZTShapeManager::getSelectedShapeList()
{
    return shapesOf(m_scene->selectedItems());
}

int ZTShapeManager::getNextShapeId() const { return m_nextShapeId; }

void ZTShapeManager::setScale(float x, float y)
{
    m_scaleX = x;
    m_scaleY = y;
}

std::tuple<float, float> ZTShapeManager::getScale() const { return {m_scaleX, m_scaleY}; }

QAbstractItemModel *ZTShapeManager::itemModel() const { return m_itemModel; }

ZTGraphicsScene *ZTShapeManager::scene() const { return m_scene; }

bool ZTShapeManager::deduplicatio(ZTMarkGraph &, const QLineF &) { return true; }
