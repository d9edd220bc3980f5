#include <studio/list/ShapeOrder.h>

#include <studio/commands/StackingCommand.h>
#include <studio/program/UndoTexts.h>

#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <memory>

namespace studio {

namespace {

using Moved = QSet<const ShapeItem *>;

/** Each moved shape changes places with the one before it, unless that is moved as well. */
void raise(ShapeItems &order, const Moved &moved)
{
    for (int i = 1; i < order.size(); ++i) {
        if (moved.contains(order[i]) && !moved.contains(order[i - 1]))
            std::swap(order[i], order[i - 1]);
    }
}

void reverse(ShapeItems &order, const Moved &moved)
{
    const bool areAll = moved.size() < 2;
    const auto isMoved = [&](const ShapeItem *item) { return areAll || moved.contains(item); };
    ShapeItems turned;
    std::copy_if(order.begin(), order.end(), std::back_inserter(turned), isMoved);
    auto next = turned.crbegin();
    for (ShapeItem *&item : order) {
        if (isMoved(item))
            item = *next++;
    }
}

} // namespace

ShapeItems markingOrder(const QGraphicsScene &scene)
{
    ShapeItems order = shapeItemsOf(scene);
    std::reverse(order.begin(), order.end());
    return order;
}

ShapeItems reordered(const ShapeItems &order, const Moved &moved, OrderChange change)
{
    ShapeItems changed = order;
    switch (change) {
    case OrderChange::Raise:
        raise(changed, moved);
        break;
    case OrderChange::Lower:
        std::reverse(changed.begin(), changed.end());
        raise(changed, moved);
        std::reverse(changed.begin(), changed.end());
        break;
    case OrderChange::ToFirst:
        return broughtBefore(order, moved, 0);
    case OrderChange::ToLast:
        return broughtBefore(order, moved, order.size());
    case OrderChange::Reverse:
        reverse(changed, moved);
        break;
    }
    return changed;
}

ShapeItems broughtBefore(const ShapeItems &order, const Moved &moved, int place)
{
    ShapeItems changed;
    changed.reserve(order.size());
    const auto isMoved = [&](const ShapeItem *item) { return moved.contains(item); };
    const auto isLeft = [&](const ShapeItem *item) { return !moved.contains(item); };
    const auto at = order.begin() + qBound(0, place, order.size());
    std::copy_if(order.begin(), at, std::back_inserter(changed), isLeft);
    std::copy_if(order.begin(), order.end(), std::back_inserter(changed), isMoved);
    std::copy_if(at, order.end(), std::back_inserter(changed), isLeft);
    return changed;
}

void setMarkingOrder(ZTGraphicsDocument &document, const ShapeItems &order)
{
    ShapeItems fromBelow = order;
    std::reverse(fromBelow.begin(), fromBelow.end());
    auto command = std::make_unique<StackingCommand>(
        document.itemMag(), fromBelow,
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change marking order")));
    if (!command->changesNothing())
        document.undoStack()->push(command.release());
}

} // namespace studio
