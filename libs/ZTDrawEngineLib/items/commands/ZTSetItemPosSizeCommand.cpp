#include <ZTDrawEngineLib/items/commands/ZTSetItemPosSizeCommand.h>

ZTSetItemPosSizeCommand::ZTSetItemPosSizeCommand(ZTGraphicsResizeItem *frame,
                                                 ZTGraphicsScene *frameScene, QRect rectAfter,
                                                 QUndoCommand *parent)
    : QUndoCommand(parent), item(frame), scene(frameScene), newRect(rectAfter)
{
    if (item)
        oldRect = item->boundingRect().toRect();
    setText(QObject::tr("ZTSetItemPosSizeCommand"));
}

void ZTSetItemPosSizeCommand::undo() {}

void ZTSetItemPosSizeCommand::redo() {}

int ZTSetItemPosSizeCommand::id() const { return 0; }

bool ZTSetItemPosSizeCommand::mergeWith(const QUndoCommand *) { return false; }
