#include <studio/commands/MoveItemsCommand.h>

#include <studio/commands/FramePause.h>

namespace studio {

MoveItemsCommand::MoveItemsCommand(ZTGraphicsScene *scene, const QVector<ItemMove> &moves,
                                   const QString &text)
    : QUndoCommand(text), drawing(scene)
{
    steps.reserve(moves.size());
    for (const ItemMove &move : moves)
        steps.append({move.item, move.item->pos(), move.toPx});
}

void MoveItemsCommand::moveAll(QPointF Step::*place)
{
    if (!drawing)
        return;
    const FramePause pause(*drawing);
    for (const Step &step : qAsConst(steps)) {
        if (step.item)
            step.item->setPos(step.*place);
    }
}

void MoveItemsCommand::undo() { moveAll(&Step::fromPx); }

void MoveItemsCommand::redo() { moveAll(&Step::toPx); }

} // namespace studio
