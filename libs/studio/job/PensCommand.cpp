#include <studio/job/PensCommand.h>

#include <jobkit/marks/DrawingPens.h>

namespace studio {

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
