#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtWidgets/QUndoCommand>

namespace studio {

/** A shape and the place it goes to. Frame: scene pixels. */
struct ItemMove
{
    ShapeItem *item = nullptr;
    QPointF toPx;
};

/**
 * Moves shapes, by arrow keys or by aligning. Places are restored exactly.
 *
 * A shape that others delete is passed over.
 */
class MoveItemsCommand : public QUndoCommand
{
public:
    MoveItemsCommand(ZTGraphicsScene *scene, const QVector<ItemMove> &moves, const QString &text);

    void undo() override;
    void redo() override;

private:
    struct Step
    {
        QPointer<ShapeItem> item;
        QPointF fromPx;
        QPointF toPx;
    };

    void moveAll(QPointF Step::*place);

    QPointer<ZTGraphicsScene> m_drawing; ///< borrowed from the document
    QVector<Step> m_steps;
};

} // namespace studio
