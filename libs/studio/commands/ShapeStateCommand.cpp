#include <studio/commands/ShapeStateCommand.h>

namespace studio {

namespace {

/**
 * A copy of an item outside every drawing; null where there is no factory, and for an imported
 * drawing, whose copy reads the file once more.
 */
std::shared_ptr<ShapeItem> copyOf(ShapeItem &item)
{
    if (dynamic_cast<const ZTVecGraph *>(item.getShapeBase()) != nullptr)
        return nullptr;
    std::shared_ptr<ShapeItem> copy(
        ZTGraphicsItemFactory::create(ShapeType2String(item.getShapeType())));
    if (copy)
        copy->copy(&item);
    return copy;
}

} // namespace

ShapeState::ShapeState(ShapeItem &item) : posPx(item.pos()), base(baseOf(item))
{
    if (const auto *textItem = qobject_cast<ZTGraphicsTextItem *>(&item))
        text.emplace(*textItem);
    else
        copy = copyOf(item);
}

ShapeState::Base ShapeState::baseOf(ShapeItem &item)
{
    ZTShapeBase *shape = item.getShapeBase();
    if (shape == nullptr)
        return {};
    return {shape->getRect(),      shape->getTransformParam(), shape->getRoundingTransformParam(),
            shape->getFillParam(), shape->getPenId(),          shape->getLockAspectRatio()};
}

void ShapeState::restoreBase(ShapeItem &item) const
{
    ZTShapeBase *shape = item.getShapeBase();
    if (shape == nullptr)
        return;
    shape->setRect(base.rectMm);
    shape->setRoundingTransformParam(base.rounding);
    shape->setFillParam(base.fill);
    shape->setPenId(base.pen);
    shape->setLockAspectRatio(base.isAspectLocked);
    // Last, because it draws the shape anew and tells the scene.
    item.setTransformParam(base.transform);
}

void ShapeState::restore(ShapeItem &item) const
{
    auto *textItem = qobject_cast<ZTGraphicsTextItem *>(&item);
    if (text && textItem != nullptr)
        text->restoreAtPresentPart(*textItem);
    else if (copy)
        item.copy(copy.get());
    else
        restoreBase(item);
    item.setPos(posPx);
    item.update();
}

ShapeStateCommand::ShapeStateCommand(ShapeItem *edited, const ShapeState &before,
                                     const QString &text)
    : QUndoCommand(text), item(edited), other(before)
{
}

void ShapeStateCommand::undo()
{
    exchange();
    isDone = false;
}

void ShapeStateCommand::redo()
{
    if (!isDone)
        exchange();
    isDone = true;
}

void ShapeStateCommand::exchange()
{
    if (!item)
        return;
    const ShapeState present(*item);
    other.restore(*item);
    other = present;
}

} // namespace studio
