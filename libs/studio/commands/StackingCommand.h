#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtWidgets/QUndoCommand>

namespace studio {

/**
 * Another order of the shapes above each other, which is the order of marking from above.
 *
 * Undo and redo keep the selection. A shape that others delete is passed over.
 * Cost: in proportion to the drawing from the lowest shape that changes its place.
 */
class StackingCommand : public QUndoCommand
{
public:
    /** `fromBelow` are all shapes of the drawing, lowest first, as they are to be. */
    StackingCommand(ZTShapeManager *manager, const ShapeItems &fromBelow, const QString &text);

    void undo() override;
    void redo() override;

    /** Whether the shapes stand in that order already: there is no need to push the command. */
    bool changesNothing() const { return m_before == m_after; }

private:
    using Order = QVector<QPointer<ShapeItem>>;

    void give(const Order &order);

    QPointer<ZTShapeManager> m_manager; ///< borrowed from the document
    Order m_before;                     ///< lowest first
    Order m_after;
};

} // namespace studio
