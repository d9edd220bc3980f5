#include <ZTDrawEngineLib/items/commands/ZTItemPosCommand.h>

#include <ZTDrawEngineLib/items/commands/ZTItemCommandText_p.h>

ZTItemPosCommand::ZTItemPosCommand(ZTAbstractGraphicsItem *movedItem, const QPointF &oldPosPx,
                                   const QPointF &newPosPx, QUndoCommand *parent)
    : QUndoCommand(parent), item(movedItem), oldPos(oldPosPx), newPos(newPosPx)
{
    const QLatin1Char blank(' ');
    const QString position = QStringLiteral("%1,%2")
                                 .arg(newPos.x(), 0, 'g', -1, blank)
                                 .arg(newPos.y(), 0, 'g', -1, blank);
    setText(QObject::tr("Pos %1 %2").arg(shapeIdOf(movedItem), 0, 10, blank).arg(position));
}

void ZTItemPosCommand::undo() { moveTo(oldPos); }

void ZTItemPosCommand::redo() { moveTo(newPos); }

void ZTItemPosCommand::moveTo(const QPointF &posPx)
{
    if (item && item->pos() != posPx)
        item->setPos(posPx);
}
