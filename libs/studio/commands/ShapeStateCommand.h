#pragma once

#include <studio/commands/TextState.h>
#include <studio/shapes/ShapeItems.h>

#include <QtWidgets/QUndoCommand>

#include <memory>
#include <optional>

namespace studio {

/**
 * All that a shape is: its place, its transforms, its hatch, its pen and what only its kind has,
 * such as the ends of a line.
 *
 * The content of an imported drawing is no part of it: no edit changes it.
 */
class ShapeState
{
public:
    /** What the item is now. */
    explicit ShapeState(ShapeItem &item);

    /** Makes the same item what it was, to the last bit. Variant text stays at its part. */
    void restore(ShapeItem &item) const;

private:
    /** What every shape has. */
    struct Base
    {
        QRectF rectMm;
        QTransform transform;
        QTransform rounding;
        ZTFillParam fill;
        int pen;
        bool isAspectLocked;
    };

    static Base baseOf(ShapeItem &item);
    void restoreBase(ShapeItem &item) const;

    QPointF m_posPx;
    std::optional<TextState> m_text;   ///< of a text or a code
    std::shared_ptr<ShapeItem> m_copy; ///< of a shape whose item can be copied for good
    Base m_base;
};

/**
 * An edit of one shape, whatever it changed about it.
 *
 * The edit is made first and recorded afterwards, so the `redo` of pushing it does nothing. Undo
 * and redo exchange the whole shape. A shape that others delete is passed over.
 */
class ShapeStateCommand : public QUndoCommand
{
public:
    /** `before` is what the shape was; it is `item` as it stands now that redo gives back. */
    ShapeStateCommand(ShapeItem *item, const ShapeState &before, const QString &text);

    void undo() override;
    void redo() override;

private:
    void exchange();

    QPointer<ShapeItem> m_item;
    ShapeState m_other; ///< the side of the edit that does not show now
    bool m_isDone = true;
};

} // namespace studio
