#pragma once

#include <jobkit/values/Pen.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QUndoCommand>

namespace studio {

/** Gives a drawing other pens. */
class PensCommand : public QUndoCommand
{
public:
    /** `document` is borrowed and outlives the command. */
    PensCommand(ZTGraphicsDocument &document, const QVector<jobkit::Pen> &pens,
                const QString &text);

    void undo() override;
    void redo() override;

private:
    ZTGraphicsDocument &m_document;
    QVector<jobkit::Pen> m_before; ///< empty: the drawing had none of its own
    QVector<jobkit::Pen> m_after;
};

} // namespace studio
