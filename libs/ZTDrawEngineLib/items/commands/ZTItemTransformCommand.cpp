#include <ZTDrawEngineLib/items/commands/ZTItemTransformCommand.h>

#include <ZTDrawEngineLib/items/commands/ZTItemCommandText_p.h>

ZTItemTransformCommand::ZTItemTransformCommand(ZTAbstractGraphicsItem *changedItem,
                                               const QTransform &before, QTransform after,
                                               QUndoCommand *parent)
    : QUndoCommand(parent), item(changedItem), oldTransform(before), newTransform(after)
{
    setText(QObject::tr("Transform %1").arg(shapeIdOf(changedItem), 0, 10, QLatin1Char(' ')));
}

void ZTItemTransformCommand::undo() { giveTransform(oldTransform); }

void ZTItemTransformCommand::redo() { giveTransform(newTransform); }

void ZTItemTransformCommand::giveTransform(const QTransform &transform)
{
    if (item && item->getTransformParam() != transform)
        item->setTransformParam(transform);
}
