#pragma once

#include <studio/choices/Preferences.h>

#include <QtCore/QPointer>
#include <QtWidgets/QUndoCommand>

namespace studio {

/** What a drawing has chosen now. */
DrawingChoice drawingChoice(const ZTGraphicsDocument &document);

/**
 * Another field, or another tolerance of curves, for a drawing. Shapes are rebuilt where their
 * curves change.
 */
class DrawingChoiceCommand : public QUndoCommand
{
public:
    DrawingChoiceCommand(ZTGraphicsDocument &document, const DrawingChoice &choice,
                         const QString &text);

    void undo() override;
    void redo() override;

private:
    void give(const DrawingChoice &choice) const;

    QPointer<ZTGraphicsDocument> m_document; ///< borrowed
    DrawingChoice m_before;
    DrawingChoice m_after;
};

} // namespace studio
