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
    using Notice = std::function<void()>;

    /**
     * `change` is applied once, now; `changed` is called after each undo and redo, for those who
     * show it. Both must stay callable as long as the command lives.
     */
    DrawingExtrasCommand(ZTGraphicsDocument &document, const Change &change, const QString &text,
                         const Notice &changed = {});

    void undo() override;
    void redo() override;

private:
    void give(const hostkit::DrawingExtras &extras) const;

    QPointer<ZTGraphicsDocument> m_document; ///< borrowed
    hostkit::DrawingExtras m_before;
    hostkit::DrawingExtras m_after;
    Notice m_changed;
};

} // namespace studio
