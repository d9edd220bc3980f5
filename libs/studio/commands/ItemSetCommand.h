#pragma once

#include <studio/commands/ItemStore.h>

#include <QtWidgets/QUndoCommand>

namespace studio {

/**
 * Shapes that came into the drawing: by creating, importing, duplicating or repeating.
 *
 * The shapes are made first and recorded afterwards, so the `redo` of pushing it only selects
 * them. Undo takes them out and selects what was selected before; redo puts the same items back.
 */
class AddItemsCommand : public QUndoCommand
{
public:
    /** `selectedBefore` is what an undo selects. */
    AddItemsCommand(ZTShapeManager *manager, const ShapeItems &items,
                    const ShapeItems &selectedBefore, const QString &text);

    void undo() override;
    void redo() override;

private:
    QPointer<ZTShapeManager> m_manager; ///< borrowed from the document
    ItemStore m_store;
    QVector<QPointer<ShapeItem>> m_selectedBefore;
    bool m_isIn = true;
};

/** Shapes that the user deletes. Undo puts them back where they were, and selects them. */
class DeleteItemsCommand : public QUndoCommand
{
public:
    DeleteItemsCommand(ZTShapeManager *manager, const ShapeItems &items, const QString &text);

    void undo() override;
    void redo() override;

private:
    ItemStore m_store;
};

} // namespace studio
