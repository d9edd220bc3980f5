#include <studio/commands/ItemValueCommand.h>

namespace studio {

ItemValueCommand::ItemValueCommand(const Access &valueAccess, const ShapeItems &changedItems,
                                   int value, const QString &text)
    : QUndoCommand(text), m_access(valueAccess), m_items(guarded(changedItems)), m_after(value)
{
    m_before.reserve(changedItems.size());
    for (const ShapeItem *item : changedItems)
        m_before.append(item != nullptr ? m_access.read(*item) : value);
}

void ItemValueCommand::undo()
{
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items[i])
            m_access.write(*m_items[i], m_before[i]);
    }
}

void ItemValueCommand::redo()
{
    for (const QPointer<ShapeItem> &item : qAsConst(m_items)) {
        if (item)
            m_access.write(*item, m_after);
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
