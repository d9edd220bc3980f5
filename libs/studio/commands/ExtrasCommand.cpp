#include <studio/commands/ExtrasCommand.h>

namespace studio {

ExtrasCommand::ExtrasCommand(const ShapeItems &changed, const Change &change, const QString &text)
    : QUndoCommand(text), items(guarded(changed))
{
    for (const ShapeItem *item : changed) {
        hostkit::ItemExtras extras;
        if (item != nullptr)
            extras = hostkit::itemExtras(*item);
        before << extras;
        change(extras);
        after << extras;
    }
}

void ExtrasCommand::undo() { give(before); }

void ExtrasCommand::redo() { give(after); }

void ExtrasCommand::give(const QVector<hostkit::ItemExtras> &extras) const
{
    for (int i = 0; i < items.size(); ++i) {
        if (items[i])
            hostkit::setItemExtras(*items[i], extras[i]);
    }
}

} // namespace studio
