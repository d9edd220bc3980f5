#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>

#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtWidgets/QUndoCommand>

/**
 * Names a change of the selection frame on an undo stack and changes nothing itself.
 *
 * Kept: neither undo nor redo does anything, and the library makes none; hosts link against it.
 * Text: "ZTSetItemPosSizeCommand".
 */
class ZTDRAWENGINELIB_EXPORT ZTSetItemPosSizeCommand : public QUndoCommand
{
public:
    /** Null frame and scene are allowed. */
    ZTSetItemPosSizeCommand(ZTGraphicsResizeItem *item, ZTGraphicsScene *scene, QRect newRect,
                            QUndoCommand *parent = nullptr);

    void undo() override;                               ///< does nothing
    void redo() override;                               ///< does nothing
    int id() const override;                            ///< 0
    bool mergeWith(const QUndoCommand *other) override; ///< never merges

private:
    QPointer<ZTGraphicsResizeItem> m_item; ///< borrowed
    QPointer<ZTGraphicsScene> m_scene;     ///< borrowed
    QString m_unused;                      ///< stays empty
    QRect m_oldRect;                       ///< the frame's bounding rectangle at construction
    QRect m_newRect;
};
