#include <studio/commands/MoveItemsCommand.h>

#include <studio/commands/FramePause.h>

#include <hostkit/items/ShapeItems.h>

namespace studio {

MoveItemsCommand::MoveItemsCommand(ZTGraphicsScene *scene, const QVector<ItemMove> &moves,
                                   const QString &text)
    : QUndoCommand(text), m_drawing(scene)
{
    m_steps.reserve(moves.size());
    for (const ItemMove &move : moves)
        m_steps.append({move.item, move.item->pos(), move.toPx});
}

void MoveItemsCommand::moveAll(QPointF Step::*place)
{
    if (!m_drawing)
        return;
    const FramePause pause(*m_drawing);
    for (const Step &step : qAsConst(m_steps)) {
        if (step.item)
            hostkit::setPosExactly(*step.item, step.*place);
    }
}

void MoveItemsCommand::undo() { moveAll(&Step::fromPx); }

void MoveItemsCommand::redo() { moveAll(&Step::toPx); }

} // namespace studio
