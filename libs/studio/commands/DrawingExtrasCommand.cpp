#include <studio/commands/DrawingExtrasCommand.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace studio {

DrawingExtrasCommand::DrawingExtrasCommand(ZTGraphicsDocument &document, const Change &change,
                                           const QString &text, const Notice &changed)
    : QUndoCommand(text), m_document(&document), m_before(hostkit::drawingExtras(document)),
      m_after(m_before), m_changed(changed)
{
    change(m_after);
}

void DrawingExtrasCommand::undo() { give(m_before); }

void DrawingExtrasCommand::redo() { give(m_after); }

void DrawingExtrasCommand::give(const hostkit::DrawingExtras &extras) const
{
    if (!m_document)
        return;
    hostkit::setDrawingExtras(*m_document, extras);
    if (m_changed)
        m_changed();
}

} // namespace studio
