#include <studio/commands/DrawingChoiceCommand.h>

#include <studio/shapes/ShapeItems.h>

namespace studio {

namespace {

void rebuildShapes(const ZTGraphicsDocument &document)
{
    for (ShapeItem *item : shapeItemsOf(*document.scene()))
        item->setTransformParam(QTransform(item->getTransformParam()));
}

} // namespace

DrawingChoice drawingChoice(const ZTGraphicsDocument &document)
{
    return {document.view()->getWorkArea(), ZTCurveTolerance::toleranceMm()};
}

DrawingChoiceCommand::DrawingChoiceCommand(ZTGraphicsDocument &document,
                                           const DrawingChoice &choice, const QString &text)
    : QUndoCommand(text), m_document(&document), m_before(drawingChoice(document)), m_after(choice)
{
}

void DrawingChoiceCommand::undo() { give(m_before); }

void DrawingChoiceCommand::redo() { give(m_after); }

void DrawingChoiceCommand::give(const DrawingChoice &choice) const
{
    if (!m_document)
        return;
    m_document->view()->setWorkArea(choice.fieldMm);
    if (choice.curveToleranceMm != ZTCurveTolerance::toleranceMm()) {
        ZTCurveTolerance::setToleranceMm(choice.curveToleranceMm);
        rebuildShapes(*m_document);
    }
    m_document->view()->viewport()->update();
}

} // namespace studio
