#include <studio/commands/ItemSetCommand.h>

namespace studio {

AddItemsCommand::AddItemsCommand(ZTShapeManager *shapeManager, const ShapeItems &items,
                                 const ShapeItems &selected, const QString &text)
    : QUndoCommand(text), manager(shapeManager), store(shapeManager, items),
      selectedBefore(guarded(selected))
{
}

void AddItemsCommand::undo()
{
    store.takeOut(stillThere(selectedBefore));
    isIn = false;
}

void AddItemsCommand::redo()
{
    if (!isIn)
        store.putBack();
    else if (manager)
        selectOnly(*manager->scene(), store.items());
    isIn = true;
}

DeleteItemsCommand::DeleteItemsCommand(ZTShapeManager *manager, const ShapeItems &items,
                                       const QString &text)
    : QUndoCommand(text), store(manager, items)
{
}

void DeleteItemsCommand::undo() { store.putBack(); }

void DeleteItemsCommand::redo() { store.takeOut({}); }

} // namespace studio
