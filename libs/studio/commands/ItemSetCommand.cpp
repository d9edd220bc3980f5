#include <studio/commands/ItemSetCommand.h>

namespace studio {

namespace {

/**
 * An item tells its size when it is first resized or turned. Told from the beginning, a step back
 * leaves the drawing as it was to the last bit.
 */
void tellSizes(const ShapeItems &items)
{
    for (ShapeItem *item : items) {
        item->boundingRect(); // paints what was not painted yet
        if (item->getSize().isEmpty() && item->getShapeBase() != nullptr)
            item->setSize(item->getShapeBase()->controlPointRect().size());
    }
}

} // namespace

AddItemsCommand::AddItemsCommand(ZTShapeManager *shapeManager, const ShapeItems &items,
                                 const ShapeItems &selected, const QString &text)
    : QUndoCommand(text), m_manager(shapeManager), m_store(shapeManager, items),
      m_selectedBefore(guarded(selected))
{
    tellSizes(items);
}

void AddItemsCommand::undo()
{
    m_store.takeOut(stillThere(m_selectedBefore));
    m_isIn = false;
}

void AddItemsCommand::redo()
{
    if (!m_isIn)
        m_store.putBack();
    else if (m_manager)
        selectOnly(*m_manager->scene(), m_store.items());
    m_isIn = true;
}

DeleteItemsCommand::DeleteItemsCommand(ZTShapeManager *manager, const ShapeItems &items,
                                       const QString &text)
    : QUndoCommand(text), m_store(manager, items)
{
}

void DeleteItemsCommand::undo() { m_store.putBack(); }

void DeleteItemsCommand::redo() { m_store.takeOut({}); }

} // namespace studio
