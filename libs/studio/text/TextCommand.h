#pragma once

#include <studio/commands/TextState.h>

#include <QtCore/QPointer>
#include <QtWidgets/QUndoCommand>

namespace studio {

/**
 * An edit of a text: its words, its fonts, its arc or its hatch.
 *
 * The edit is made first and recorded afterwards, so the `redo` of pushing it does nothing.
 *
 * Counters go on: parts that were marked in between are not taken back. An edit that leaves the
 * variant text alone leaves its progress alone, too, and one that changes the variant text keeps
 * for redo the progress that it finds at undo. A text that others delete is passed over.
 */
class TextCommand : public QUndoCommand
{
public:
    /** What the edit does to the variant text. */
    enum class VariantText { Kept, Changed };

    TextCommand(ZTAbstractGraphicsTextItem *item, TextState before, VariantText variantText,
                const QString &text);

    /** The text that is edited, or null when it has gone. */
    const ZTAbstractGraphicsTextItem *edited() const { return m_item; }

    void undo() override;
    void redo() override;

private:
    void exchange();

    QPointer<ZTAbstractGraphicsTextItem> m_item;
    TextState m_other; ///< the side of the edit that does not show now
    VariantText m_variantText;
    bool m_isDone = true;
};

} // namespace studio
