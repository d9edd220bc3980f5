#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtWidgets/QUndoCommand>

namespace studio {

/**
 * A change of one number that shapes have besides their properties, to the same value for all.
 *
 * Undo gives each shape the number it had. A shape that others delete is passed over.
 */
class ItemValueCommand : public QUndoCommand
{
public:
    void undo() override;
    void redo() override;

protected:
    /** How the number of a shape is read and written. */
    struct Access
    {
        int (*read)(const ShapeItem &item);
        void (*write)(ShapeItem &item, int value);
    };

    ItemValueCommand(const Access &access, const ShapeItems &items, int value, const QString &text);

private:
    Access m_access;
    QVector<QPointer<ShapeItem>> m_items;
    QVector<int> m_before; ///< by item
    int m_after;
};

/** Gives shapes the pen that marks them. */
class PenCommand : public ItemValueCommand
{
public:
    PenCommand(const ShapeItems &items, int pen, const QString &text);
};

/** Locks or frees the proportions of shapes when they are resized. */
class AspectLockCommand : public ItemValueCommand
{
public:
    AspectLockCommand(const ShapeItems &items, bool isLocked, const QString &text);
};

} // namespace studio
