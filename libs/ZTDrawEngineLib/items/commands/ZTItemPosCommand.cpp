#include <ZTDrawEngineLib/items/commands/ZTItemPosCommand.h>

#include <ZTDrawEngineLib/items/commands/ZTItemCommandText_p.h>

ZTItemPosCommand::ZTItemPosCommand(ZTAbstractGraphicsItem *movedItem, const QPointF &oldPosPx,
                                   const QPointF &newPosPx, QUndoCommand *parent)
    : QUndoCommand(parent), m_item(movedItem), m_oldPos(oldPosPx), m_newPos(newPosPx)
{
    const QLatin1Char blank(' ');
    const QString position = QStringLiteral("%1,%2")
                                 .arg(m_newPos.x(), 0, 'g', -1, blank)
                                 .arg(m_newPos.y(), 0, 'g', -1, blank);
    setText(QObject::tr("Pos %1 %2").arg(shapeIdOf(movedItem), 0, 10, blank).arg(position));
}

void ZTItemPosCommand::undo() { moveTo(m_oldPos); }

void ZTItemPosCommand::redo() { moveTo(m_newPos); }

void ZTItemPosCommand::moveTo(const QPointF &posPx)
{
    if (m_item && m_item->pos() != posPx)
        m_item->setPos(posPx);
}
