#include <ZTDrawEngineLib/items/ZTFrameSelection_p.h>

#include <QtCore/QSet>
#include <QtWidgets/QGraphicsScene>

namespace {

/** Up to this many items the rectangle is read from all of them at each change. */
constexpr int kFewItems = 64;

ZTSelectionBounds::Extent extentOf(const ZTAbstractGraphicsItem *item)
{
    return {item->mapRectToScene(item->boundingRect()), item->zValue()};
}

QSet<const QGraphicsItem *> itemsOf(const QGraphicsScene *scene)
{
    const QList<QGraphicsItem *> items = scene->items();
    return {items.begin(), items.end()};
}

} // namespace

void ZTFrameSelection::assign(const QList<QGraphicsItem *> &items)
{
    selectItems = items;
    guards.clear();
    guards.reserve(items.size());
    plainCount = 0;
    for (QGraphicsItem *item : items) {
        Guard guard;
        guard.shapeItem = dynamic_cast<ZTAbstractGraphicsItem *>(item);
        guard.object = guard.shapeItem != nullptr ? guard.shapeItem : dynamic_cast<QObject *>(item);
        guard.isPlain = guard.object.isNull();
        plainCount += guard.isPlain ? 1 : 0;
        guards.append(guard);
    }
    forgetExtents();
}

const QList<QGraphicsItem *> &ZTFrameSelection::items(const QGraphicsScene *scene)
{
    removeGone(scene);
    return selectItems;
}

void ZTFrameSelection::removeGone(const QGraphicsScene *scene)
{
    const bool canWatchPlain = plainCount > 0 && scene != nullptr;
    const QSet<const QGraphicsItem *> present =
        canWatchPlain ? itemsOf(scene) : QSet<const QGraphicsItem *>();
    const auto isThere = [&](int i) {
        if (guards.at(i).isPlain)
            return !canWatchPlain || present.contains(selectItems.at(i));
        return !guards.at(i).object.isNull();
    };

    int kept = 0;
    while (kept < guards.size() && isThere(kept))
        ++kept;
    if (kept == guards.size())
        return;
    for (int i = kept + 1; i < guards.size(); ++i) {
        if (isThere(i)) {
            selectItems[kept] = selectItems.at(i);
            guards[kept] = guards.at(i);
            ++kept;
        }
    }
    selectItems.erase(selectItems.begin() + kept, selectItems.end());
    guards.resize(kept);
    forgetExtents();
}

QVector<ZTFrameSelection::ShapeItem> ZTFrameSelection::shapeItems() const
{
    QVector<ShapeItem> result;
    result.reserve(guards.size());
    for (const Guard &guard : guards) {
        if (guard.shapeItem != nullptr && guard.object)
            result.append(guard.shapeItem);
    }
    return result;
}

QVector<QGraphicsItem *> ZTFrameSelection::foreignItems(const QGraphicsScene *scene)
{
    removeGone(scene);
    QVector<QGraphicsItem *> result;
    for (int i = 0; i < guards.size(); ++i) {
        if (guards.at(i).shapeItem == nullptr)
            result.append(selectItems.at(i));
    }
    return result;
}

ZTSelectionBounds::Extent ZTFrameSelection::readExtent()
{
    forgetExtents();
    QRectF rectPx;
    double z = 0;
    for (const Guard &guard : qAsConst(guards)) {
        if (guard.shapeItem == nullptr || !guard.object)
            continue;
        rectPx |= guard.shapeItem->mapRectToScene(guard.shapeItem->boundingRect());
        z = qMax(z, guard.shapeItem->zValue());
    }
    return {rectPx, z};
}

ZTSelectionBounds::Extent ZTFrameSelection::extentAfterChangeOf(ZTAbstractGraphicsItem *child)
{
    if (guards.size() <= kFewItems)
        return readExtent();
    if (isBoundsValid)
        noteChange(child);
    else
        readAll();
    return bounds.total();
}

void ZTFrameSelection::noteChange(ZTAbstractGraphicsItem *child)
{
    const int index = isBoundsValid ? boundsIndex.value(child, -1) : -1;
    if (index >= 0)
        bounds.replace(index, extentOf(child));
}

void ZTFrameSelection::noteGone(ZTAbstractGraphicsItem *child)
{
    const int index = isBoundsValid ? boundsIndex.value(child, -1) : -1;
    if (index >= 0) {
        bounds.replace(index, {});
        boundsIndex.remove(child);
    }
}

void ZTFrameSelection::forgetExtents() { isBoundsValid = false; }

void ZTFrameSelection::readAll()
{
    std::vector<ZTSelectionBounds::Extent> extents;
    extents.reserve(static_cast<std::size_t>(guards.size()));
    boundsIndex.clear();
    boundsIndex.reserve(guards.size());
    for (const Guard &guard : qAsConst(guards)) {
        if (guard.shapeItem == nullptr || !guard.object)
            continue;
        boundsIndex.insert(guard.shapeItem, static_cast<int>(extents.size()));
        extents.push_back(extentOf(guard.shapeItem));
    }
    bounds.assign(extents);
    isBoundsValid = true;
}
