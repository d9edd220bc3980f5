#pragma once

#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>

#include <QtCore/QList>

#include <memory>
#include <vector>

namespace testsupport {

/** Items as a selection frame takes them. */
template <class Item>
QList<QGraphicsItem *> listOf(const std::vector<std::unique_ptr<Item>> &items)
{
    QList<QGraphicsItem *> list;
    for (const auto &item : items)
        list << item.get();
    return list;
}

/** What a frame covers, in scene pixels. */
inline QRectF rectInScene(const ZTGraphicsResizeItem &frame)
{
    return frame.rect().translated(frame.pos());
}

} // namespace testsupport
