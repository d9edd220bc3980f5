#pragma once

#include <hostkit/drawing/DrawingExtras.h>

#include <QtCore/QPointer>
#include <QtWidgets/QUndoCommand>

#include <functional>

class ZTGraphicsDocument;

namespace studio {

/**
 * Any change of what a drawing carries beside its items: names of groups, guides and whatever
 * fields are added later. The one command for all of them.
 */
class DrawingExtrasCommand : public QUndoCommand
{
public:
    using Change = std::function<void(hostkit::DrawingExtras &extras)>;

    /** `change` is applied now and never again. */
    DrawingExtrasCommand(ZTGraphicsDocument &document, const Change &change, const QString &text);

    void undo() override;
    void redo() override;

private:
    void give(const hostkit::DrawingExtras &extras) const;

    QPointer<ZTGraphicsDocument> m_document; ///< borrowed
    hostkit::DrawingExtras m_before;
    hostkit::DrawingExtras m_after;
};

} // namespace studio
