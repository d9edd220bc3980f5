#include <studio/commands/ItemValueCommand.h>

namespace studio {

ItemValueCommand::ItemValueCommand(const Access &valueAccess, const ShapeItems &changedItems,
                                   int value, const QString &text)
    : QUndoCommand(text), access(valueAccess), items(guarded(changedItems)), after(value)
{
    before.reserve(changedItems.size());
    for (const ShapeItem *item : changedItems)
        before.append(item != nullptr ? access.read(*item) : value);
}

void ItemValueCommand::undo()
{
    for (int i = 0; i < items.size(); ++i) {
        if (items[i])
            access.write(*items[i], before[i]);
    }
}

void ItemValueCommand::redo()
{
    for (const QPointer<ShapeItem> &item : qAsConst(items)) {
        if (item)
            access.write(*item, after);
    }
}

PenCommand::PenCommand(const ShapeItems &changed, int pen, const QString &text)
    : ItemValueCommand({[](const ShapeItem &item) { return item.getPenId(); },
                        [](ShapeItem &item, int value) { item.setPenId(value); }},
                       changed, pen, text)
{
}

AspectLockCommand::AspectLockCommand(const ShapeItems &changed, bool isLocked, const QString &text)
    : ItemValueCommand({[](const ShapeItem &item) { return int(isAspectLocked(item)); },
                        [](ShapeItem &item, int value) {
                            if (ZTShapeBase *shape = item.getShapeBase())
                                shape->setLockAspectRatio(value != 0);
                        }},
                       changed, int(isLocked), text)
{
}

} // namespace studio
