#include <studio/commands/OutlinesCommand.h>

#include <hostkit/items/GraphicItems.h>

namespace studio {

OutlinesCommand::OutlinesCommand(const QVector<OutlineChange> &changes, const QString &text)
    : QUndoCommand(text)
{
    for (const OutlineChange &change : changes) {
        QPainterPath drawing;
        if (change.item != nullptr && hostkit::drawingFor(*change.item, change.pathsMm, &drawing))
            take(*change.item, drawing);
    }
}

OutlinesCommand::OutlinesCommand(const QVector<DrawingChange> &changes, const QString &text)
    : QUndoCommand(text)
{
    for (const DrawingChange &change : changes) {
        if (change.item != nullptr && hostkit::graphicOf(*change.item) != nullptr)
            take(*change.item, change.drawing);
    }
}

void OutlinesCommand::take(ShapeItem &item, const QPainterPath &drawing)
{
    const ZTVecGraph *graphic = hostkit::graphicOf(item);
    m_changes.append({&item, graphic->getDrawing(), drawing, graphic->getImagePath()});
}

void OutlinesCommand::undo()
{
    for (const Change &change : qAsConst(m_changes))
        give(change, change.before, change.nameBefore);
}

// The drawing is no longer what stands in its file: a copy must not read that again.
void OutlinesCommand::redo()
{
    for (const Change &change : qAsConst(m_changes))
        give(change, change.after, hostkit::kNoDrawingFile);
}

void OutlinesCommand::give(const Change &change, const QPainterPath &drawing, const QString &name)
{
    ZTVecGraph *graphic = change.item ? hostkit::graphicOf(*change.item) : nullptr;
    if (graphic == nullptr)
        return;
    graphic->setDrawing(drawing, name);
    // Painted through the item, which tells the scene of the new box.
    change.item->setTransformParam(change.item->getTransformParam());
    change.item->update();
}

} // namespace studio
