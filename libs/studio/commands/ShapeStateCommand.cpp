#include <studio/commands/ShapeStateCommand.h>

#include <hostkit/items/ShapeItems.h>

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

ShapeState::ShapeState(ShapeItem &item) : m_posPx(item.pos()), m_base(baseOf(item))
{
    if (const auto *textItem = qobject_cast<ZTAbstractGraphicsTextItem *>(&item))
        m_text.emplace(*textItem);
    else
        m_copy = copyOf(item);
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
    shape->setRect(m_base.rectMm);
    shape->setRoundingTransformParam(m_base.rounding);
    shape->setFillParam(m_base.fill);
    shape->setPenId(m_base.pen);
    shape->setLockAspectRatio(m_base.isAspectLocked);
    // Last, because it draws the shape anew and tells the scene.
    item.setTransformParam(m_base.transform);
}

void ShapeState::restore(ShapeItem &item) const
{
    auto *textItem = qobject_cast<ZTAbstractGraphicsTextItem *>(&item);
    if (m_text && textItem != nullptr)
        m_text->restoreAtPresentPart(*textItem);
    else if (m_copy)
        item.copy(m_copy.get());
    else
        restoreBase(item);
    hostkit::setPosExactly(item, m_posPx);
    item.update();
}

ShapeStateCommand::ShapeStateCommand(ShapeItem *edited, const ShapeState &before,
                                     const QString &text)
    : QUndoCommand(text), m_item(edited), m_other(before)
{
}

void ShapeStateCommand::undo()
{
    exchange();
    m_isDone = false;
}

void ShapeStateCommand::redo()
{
    if (!m_isDone)
        exchange();
    m_isDone = true;
}

void ShapeStateCommand::exchange()
{
    if (!m_item)
        return;
    const ShapeState present(*m_item);
    m_other.restore(*m_item);
    m_other = present;
}

} // namespace studio
