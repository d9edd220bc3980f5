#include <studio/job/PensCommand.h>

#include <studio/shapes/PenColors.h>

#include <jobkit/marks/DrawingPens.h>

namespace studio {

QVector<jobkit::Pen> pensOf(const ZTGraphicsDocument &document)
{
    QVector<jobkit::Pen> pens = jobkit::drawingPens(document);
    if (jobkit::hasDrawingPens(document))
        return pens;
    for (jobkit::Pen &pen : pens)
        pen.color = penColor(pen.number);
    return pens;
}

PensCommand::PensCommand(ZTGraphicsDocument &document, const QVector<jobkit::Pen> &pens,
                         const QString &text)
    : QUndoCommand(text), m_document(document),
      m_before(jobkit::hasDrawingPens(document) ? jobkit::drawingPens(document)
                                                : QVector<jobkit::Pen>()),
      m_after(pens)
{
}

void PensCommand::undo() { jobkit::setDrawingPens(m_document, m_before); }

void PensCommand::redo() { jobkit::setDrawingPens(m_document, m_after); }

} // namespace studio
