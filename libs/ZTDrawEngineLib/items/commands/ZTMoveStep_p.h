#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>
#include <ZTDrawEngineLib/items/commands/ZTUndoStep_p.h>

#include <QtCore/QPointF>
#include <QtCore/QString>

#include <memory>

class ZTAbstractGraphicsItem;
class ZTMoveGroup;

QT_BEGIN_NAMESPACE
class QUndoStack;
QT_END_NAMESPACE

/**
 * An undo step of moves, one command an item. When there are many of them, undoing and redoing the
 * step tells the scene's index once and lets the frame follow once, at the end.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT ZTMoveStep
{
public:
    /** @param moveCount how many moves are to be pushed, at most */
    ZTMoveStep(QUndoStack *undoStack, const QString &text, int moveCount);
    ~ZTMoveStep();

    ZTMoveStep(const ZTMoveStep &) = delete;
    ZTMoveStep &operator=(const ZTMoveStep &) = delete;

    /** Records a move that was made. Positions in scene pixels. */
    void push(ZTAbstractGraphicsItem *item, const QPointF &fromPx, const QPointF &toPx);

private:
    ZTUndoStep m_step;
    std::shared_ptr<ZTMoveGroup> m_group; ///< shared with the commands; null for few
};
