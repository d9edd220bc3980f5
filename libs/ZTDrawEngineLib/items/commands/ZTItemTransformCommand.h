#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

#include <QtCore/QPointer>
#include <QtGui/QTransform>
#include <QtWidgets/QUndoCommand>

/**
 * A change of the transform of one item's shape. Pushing it after the change was made changes
 * nothing.
 *
 * Text: "Transform %1" with the shape's id.
 * Owner: the undo stack; the item is the host's, and a deleted one makes the command do nothing.
 */
class ZTDRAWENGINELIB_EXPORT ZTItemTransformCommand : public QUndoCommand
{
public:
    /** A null item is allowed; the id in the text is then -1. */
    ZTItemTransformCommand(ZTAbstractGraphicsItem *item, const QTransform &oldTransform,
                           QTransform newTransform, QUndoCommand *parent = nullptr);

    void undo() override; ///< gives the old transform back, unless the shape has it
    void redo() override; ///< gives the new transform, unless the shape has it

private:
    void giveTransform(const QTransform &transform);

    QPointer<ZTAbstractGraphicsItem> m_item; ///< borrowed; null once the item is gone
    QTransform m_oldTransform;
    QTransform m_newTransform;
};
