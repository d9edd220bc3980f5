#include <studio/commands/ExtrasCommand.h>

namespace studio {

ExtrasCommand::ExtrasCommand(const ShapeItems &changed, const Change &change, const QString &text)
    : QUndoCommand(text), m_items(guarded(changed))
{
    for (const ShapeItem *item : changed) {
        hostkit::ItemExtras extras;
        if (item != nullptr)
            extras = hostkit::itemExtras(*item);
        m_before << extras;
        change(extras);
        m_after << extras;
    }
}

void ExtrasCommand::undo() { give(m_before); }

void ExtrasCommand::redo() { give(m_after); }

void ExtrasCommand::give(const QVector<hostkit::ItemExtras> &extras) const
{
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items[i])
            hostkit::setItemExtras(*m_items[i], extras[i]);
    }
}

} // namespace studio
