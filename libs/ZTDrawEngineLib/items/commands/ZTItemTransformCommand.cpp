#include <ZTDrawEngineLib/items/commands/ZTItemTransformCommand.h>

#include <ZTDrawEngineLib/items/commands/ZTItemCommandText_p.h>

ZTItemTransformCommand::ZTItemTransformCommand(ZTAbstractGraphicsItem *changedItem,
                                               const QTransform &before, QTransform after,
                                               QUndoCommand *parent)
    : QUndoCommand(parent), m_item(changedItem), m_oldTransform(before), m_newTransform(after)
{
    setText(QObject::tr("Transform %1").arg(shapeIdOf(changedItem), 0, 10, QLatin1Char(' ')));
}

void ZTItemTransformCommand::undo() { giveTransform(m_oldTransform); }

void ZTItemTransformCommand::redo() { giveTransform(m_newTransform); }

void ZTItemTransformCommand::giveTransform(const QTransform &transform)
{
    if (m_item && m_item->getTransformParam() != transform)
        m_item->setTransformParam(transform);
}
