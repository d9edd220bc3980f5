#pragma once

#include <studio/shapes/ShapeItems.h>

#include <hostkit/items/ItemExtras.h>

#include <QtWidgets/QUndoCommand>

#include <functional>

namespace studio {

/**
 * Any change of what shapes carry beside the library's record: name, marked, locked, hidden, groups
 * and whatever fields are added later. The one command for all of them.
 *
 * Undo gives each shape the extras it had. A shape that others delete is passed over.
 */
class ExtrasCommand : public QUndoCommand
{
public:
    using Change = std::function<void(hostkit::ItemExtras &extras)>;

    /** `change` is applied to the extras of each item, now and never again. */
    ExtrasCommand(const ShapeItems &items, const Change &change, const QString &text);

    void undo() override;
    void redo() override;

    /** Whether the command would change nothing: there is no need to push it. */
    bool changesNothing() const { return m_before == m_after; }

private:
    void give(const QVector<hostkit::ItemExtras> &extras) const;

    QVector<QPointer<ShapeItem>> m_items;
    QVector<hostkit::ItemExtras> m_before; ///< by item
    QVector<hostkit::ItemExtras> m_after;  ///< by item
};

} // namespace studio
