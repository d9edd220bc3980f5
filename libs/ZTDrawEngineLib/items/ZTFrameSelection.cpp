#include <ZTDrawEngineLib/items/ZTFrameSelection_p.h>

#include <ZTDrawEngineLib/items/ZTSceneIndex_p.h>
#include <ZTDrawEngineLib/shapes/OutlineChanges_p.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QSet>
#include <QtWidgets/QGraphicsScene>

namespace {

/** Up to this many items the rectangle is read from all of them at each change. */
constexpr int kFewItems = 64;

/** So many selected items, and a quarter more than last time, have the frame listed behind them. */
constexpr int kManyItems = 4096;

ZTSelectionBounds::Extent extentOf(const ZTAbstractGraphicsItem *item)
{
    return {item->mapRectToScene(item->boundingRect()), item->zValue()};
}

/** Parents and transformations that are objects of their own move an item without a word to it. */
bool isWatchable(const ZTAbstractGraphicsItem *item)
{
    return item->parentItem() == nullptr && item->transformations().isEmpty();
}

/** Whether since `count` changes the extent of no shape but that of `item` has changed. */
bool isOnlyOneSince(quint64 count, const ZTAbstractGraphicsItem *item)
{
    const ZTShapeBase *shape = item->getShapeBase();
    return ztoutlinechanges::isOnlyOneSince(count, shape != nullptr ? &shape->getLines() : nullptr);
}

QSet<const QGraphicsItem *> itemsOf(const QGraphicsScene *scene)
{
    const QList<QGraphicsItem *> items = scene->items();
    return {items.begin(), items.end()};
}

} // namespace

void ZTFrameSelection::assign(const QList<QGraphicsItem *> &items)
{
    m_selectItems = items;
    m_guards.clear();
    m_guards.reserve(items.size());
    m_plainCount = 0;
    for (QGraphicsItem *item : items) {
        Guard guard;
        guard.shapeItem = dynamic_cast<ZTAbstractGraphicsItem *>(item);
        guard.object = guard.shapeItem != nullptr ? guard.shapeItem : dynamic_cast<QObject *>(item);
        guard.isPlain = guard.object.isNull();
        m_plainCount += guard.isPlain ? 1 : 0;
        m_guards.append(guard);
    }
    forgetExtents();
}

void ZTFrameSelection::listFrameLast(QGraphicsItem &frame)
{
    const int count = m_selectItems.size();
    if (count < kManyItems || count - m_listedBehind <= m_listedBehind / 4)
        return;
    listLast(frame);
    m_listedBehind = count;
}

const QList<QGraphicsItem *> &ZTFrameSelection::items(const QGraphicsScene *scene)
{
    removeGone(scene);
    return m_selectItems;
}

void ZTFrameSelection::removeGone(const QGraphicsScene *scene)
{
    const bool canWatchPlain = m_plainCount > 0 && scene != nullptr;
    const QSet<const QGraphicsItem *> present =
        canWatchPlain ? itemsOf(scene) : QSet<const QGraphicsItem *>();
    const auto isThere = [&](int i) {
        if (m_guards.at(i).isPlain)
            return !canWatchPlain || present.contains(m_selectItems.at(i));
        return !m_guards.at(i).object.isNull();
    };

    int kept = 0;
    while (kept < m_guards.size() && isThere(kept))
        ++kept;
    if (kept == m_guards.size())
        return;
    for (int i = kept + 1; i < m_guards.size(); ++i) {
        if (isThere(i)) {
            m_selectItems[kept] = m_selectItems.at(i);
            m_guards[kept] = m_guards.at(i);
            ++kept;
        }
    }
    m_selectItems.erase(m_selectItems.begin() + kept, m_selectItems.end());
    m_guards.resize(kept);
    forgetExtents();
}

QVector<ZTFrameSelection::ShapeItem> ZTFrameSelection::shapeItems() const
{
    QVector<ShapeItem> result;
    result.reserve(m_guards.size());
    for (const Guard &guard : m_guards) {
        if (guard.shapeItem != nullptr && guard.object)
            result.append(guard.shapeItem);
    }
    return result;
}

QVector<QGraphicsItem *> ZTFrameSelection::foreignItems(const QGraphicsScene *scene)
{
    removeGone(scene);
    QVector<QGraphicsItem *> result;
    for (int i = 0; i < m_guards.size(); ++i) {
        if (m_guards.at(i).shapeItem == nullptr)
            result.append(m_selectItems.at(i));
    }
    return result;
}

ZTSelectionBounds::Extent ZTFrameSelection::readExtent()
{
    forgetExtents();
    QRectF rectPx;
    double z = 0;
    for (const Guard &guard : qAsConst(m_guards)) {
        if (guard.shapeItem == nullptr || !guard.object)
            continue;
        rectPx |= guard.shapeItem->mapRectToScene(guard.shapeItem->boundingRect());
        z = qMax(z, guard.shapeItem->zValue());
    }
    return {rectPx, z};
}

ZTSelectionBounds::Extent ZTFrameSelection::extentAfterChangeOf(ZTAbstractGraphicsItem *child)
{
    if (m_guards.size() <= kFewItems)
        return readExtent();
    noteChange(child);
    if (!m_isBoundsValid)
        readAll();
    return m_bounds.total();
}

void ZTFrameSelection::noteChange(ZTAbstractGraphicsItem *child)
{
    if (!m_isBoundsValid)
        return;
    m_isBoundsValid = isOnlyOneSince(m_changeCount, child) && isWatchable(child);
    const auto found = m_boundsIndex.constFind(child);
    if (m_isBoundsValid && found != m_boundsIndex.constEnd())
        m_bounds.replace(*found, extentOf(child));
    m_changeCount = ztoutlinechanges::count();
}

void ZTFrameSelection::noteGone(ZTAbstractGraphicsItem *child)
{
    const int index = m_isBoundsValid ? m_boundsIndex.value(child, -1) : -1;
    if (index >= 0) {
        m_bounds.replace(index, {});
        m_boundsIndex.remove(child);
    }
}

void ZTFrameSelection::forgetExtents() { m_isBoundsValid = false; }

void ZTFrameSelection::noteMove(QGraphicsScene &scene)
{
    // The beginning costs more than a move: a single one is not worth it.
    if (++m_moveCount == 2)
        m_carried = ZTCarriedItems::of(scene, shapeItems());
}

void ZTFrameSelection::endCarrying()
{
    m_moveCount = 0;
    m_carried.reset();
}

void ZTFrameSelection::readAll()
{
    std::vector<ZTSelectionBounds::Extent> extents;
    extents.reserve(static_cast<std::size_t>(m_guards.size()));
    m_boundsIndex.clear();
    m_boundsIndex.reserve(m_guards.size());
    bool isWatchable = true;
    for (const Guard &guard : qAsConst(m_guards)) {
        if (guard.shapeItem == nullptr || !guard.object)
            continue;
        m_boundsIndex.insert(guard.shapeItem, static_cast<int>(extents.size()));
        extents.push_back(extentOf(guard.shapeItem));
        isWatchable = isWatchable && ::isWatchable(guard.shapeItem);
    }
    m_bounds.assign(extents);
    m_isBoundsValid = isWatchable;
    m_changeCount = ztoutlinechanges::count();
}
