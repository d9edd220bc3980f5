#include <studio/shapes/ShapeItems.h>

#include <QtCore/QSignalBlocker>

namespace studio {

namespace {

template <class IsWanted>
ShapeItems itemsFromBelow(const QGraphicsScene &scene, const IsWanted &isWanted)
{
    ShapeItems found;
    const QList<QGraphicsItem *> all = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem *candidate : all) {
        if (!isWanted(*candidate))
            continue;
        if (auto *item = dynamic_cast<ShapeItem *>(candidate))
            found.append(item);
    }
    return found;
}

/** As the frame has them: the scene makes a set anew of all that are selected, when asked. */
int countUnderFrame(const QGraphicsScene &scene)
{
    const auto *drawing = qobject_cast<const ZTGraphicsScene *>(&scene);
    const ZTGraphicsResizeItem *frame =
        drawing != nullptr ? drawing->getGraphicsResizeItem() : nullptr;
    return frame != nullptr ? frame->selectItem().size() : 0;
}

} // namespace

ShapeItems shapeItemsOf(const QGraphicsScene &scene)
{
    return itemsFromBelow(scene, [](const QGraphicsItem &) { return true; });
}

ShapeItems selectedShapeItems(const QGraphicsScene &scene)
{
    const auto selectedFromBelow = [&scene] {
        return itemsFromBelow(scene, [](const QGraphicsItem &item) { return item.isSelected(); });
    };
    if (countUnderFrame(scene) > 1)
        return selectedFromBelow();
    const QList<QGraphicsItem *> selected = scene.selectedItems();
    if (selected.size() > 1)
        return selectedFromBelow();
    auto *only = selected.isEmpty() ? nullptr : dynamic_cast<ShapeItem *>(selected.first());
    return only != nullptr ? ShapeItems{only} : ShapeItems();
}

ShapeItems selectedInNoOrder(const QGraphicsScene &scene)
{
    ShapeItems found;
    for (QGraphicsItem *selected : scene.selectedItems()) {
        if (auto *item = dynamic_cast<ShapeItem *>(selected))
            found.append(item);
    }
    return found;
}

QRectF sceneBox(const ShapeItem &item) { return item.mapRectToScene(item.boundingRect()); }

QRectF sceneBox(const ShapeItems &items)
{
    QRectF boxPx;
    for (const ShapeItem *item : items)
        boxPx |= sceneBox(*item);
    return boxPx;
}

bool isAspectLocked(const ShapeItem &item)
{
    const ZTShapeBase *shape = item.getShapeBase();
    return shape != nullptr && shape->getLockAspectRatio();
}

bool canBeHatched(const ShapeItem &item)
{
    if (const auto *text = qobject_cast<const ZTGraphicsTextItem *>(&item))
        return text->fontType() != FontType::singleLine;
    return item.getShapeBase() != nullptr && item.getShapeType() != ShapeType::Line;
}

void selectOnly(QGraphicsScene &scene, const ShapeItems &items)
{
    {
        const QSignalBlocker oneSignalForAll(&scene);
        scene.clearSelection();
        for (ShapeItem *item : items) {
            if (item != nullptr && item->scene() == &scene)
                item->setSelected(true);
        }
    }
    Q_EMIT scene.selectionChanged();
}

QVector<QPointer<ShapeItem>> guarded(const ShapeItems &items)
{
    return {items.begin(), items.end()};
}

ShapeItems stillThere(const QVector<QPointer<ShapeItem>> &items)
{
    ShapeItems present;
    present.reserve(items.size());
    for (const QPointer<ShapeItem> &item : items) {
        if (item)
            present.append(item);
    }
    return present;
}

} // namespace studio
