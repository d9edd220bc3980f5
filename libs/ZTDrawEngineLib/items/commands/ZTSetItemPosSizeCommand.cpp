#include <ZTDrawEngineLib/items/commands/ZTSetItemPosSizeCommand.h>

ZTSetItemPosSizeCommand::ZTSetItemPosSizeCommand(ZTGraphicsResizeItem *frame,
                                                 ZTGraphicsScene *frameScene, QRect rectAfter,
                                                 QUndoCommand *parent)
    : QUndoCommand(parent), m_item(frame), m_scene(frameScene), m_newRect(rectAfter)
{
    if (m_item)
        m_oldRect = m_item->boundingRect().toRect();
    setText(QObject::tr("ZTSetItemPosSizeCommand"));
}

void ZTSetItemPosSizeCommand::undo() {}

void ZTSetItemPosSizeCommand::redo() {}

int ZTSetItemPosSizeCommand::id() const { return 0; }

bool ZTSetItemPosSizeCommand::mergeWith(const QUndoCommand *) { return false; }
