#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

#include <QtCore/QPointF>
#include <QtCore/QPointer>
#include <QtWidgets/QUndoCommand>

/**
 * A move of one item. Pushing it after the move was made changes nothing, and moves of the same
 * item stay steps of their own.
 *
 * Text: "Pos %1 %2" with the shape's id and the new position as "x,y".
 * Owner: the undo stack; the item is the host's, and a deleted one makes the command do nothing.
 */
class ZTDRAWENGINELIB_EXPORT ZTItemPosCommand : public QUndoCommand
{
public:
    /** A null item is allowed; the id in the text is then -1. Positions in scene pixels. */
    ZTItemPosCommand(ZTAbstractGraphicsItem *item, const QPointF &oldPos, const QPointF &newPos,
                     QUndoCommand *parent = nullptr);

    /** Moves the item to the old position, unless it is there under the fuzzy test of `QPointF`. */
    void undo() override;

    /** Moves the item to the new position, unless it is there. */
    void redo() override;

private:
    void moveTo(const QPointF &posPx);

    QPointer<ZTAbstractGraphicsItem> m_item; ///< borrowed; null once the item is gone
    QPointF m_oldPos;
    QPointF m_newPos;
};
