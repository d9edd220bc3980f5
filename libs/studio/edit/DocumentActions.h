#pragma once

#include <studio/choices/Preferences.h>
#include <studio/commands/ItemGeometryCommand.h>
#include <studio/shapes/ShapeItems.h>

#include <QtCore/QObject>

#include <functional>

namespace studio {

struct ShapePlace;

/**
 * What an operator can do to a drawing: each operation is one undo step with a text for people.
 * Operations on the selection do nothing without one.
 *
 * Lets the selection frame follow its items after every step of the undo stack.
 */
class DocumentActions : public QObject
{
    Q_OBJECT

public:
    /** Limit: shapes that one matrix may make; the tree and the frame stay quick with that many. */
    static constexpr int kMaxMatrix = 100000;

    /** `document` is borrowed and outlives this. */
    explicit DocumentActions(ZTGraphicsDocument &document, QObject *parent = nullptr);

    /**
     * A shape of the usual size in the view, the middle first, where it covers no other; where all
     * is taken it stands beside the drawing.
     *
     * Failure: null for a kind that no factory makes.
     */
    ShapeItem *create(ShapeType type);

    /** A shape that was drawn with the mouse; null as above. */
    ShapeItem *draw(ShapeType type, const ShapePlace &place);

    void duplicate();
    void removeSelected();
    void clear(); ///< empties the drawing and the undo stack

    void selectAll();
    void invertSelection();
    void clearSelection();

    void nudge(const QPointF &byMm);
    void mirror(MirrorCommand::Kind kind);
    void rotate(double angleDeg); ///< about the frame's middle; positive is clockwise

    /**
     * Repeats the selected shapes as one block in rows and columns and selects the copies.
     *
     * @param gapMm space between the blocks' boxes, in x and y
     * @param isNumbered each copy of the one variant text or code has its next value, row by row
     * @return shapes made; 0 if none is selected, or more than `kMaxMatrix` would stand
     */
    int repeat(int rows, int columns, const QSizeF &gapMm, bool isNumbered = false);

    void setPen(int pen);           ///< of all selected shapes
    void lockAspect(bool isLocked); ///< of all selected shapes

    void undo();
    void redo();

    /** What shapes get that are created from now on; lines and codes keep their own hatch. */
    void setNewShape(const NewShapeChoice &choice) { m_newShape = choice; }

    /** Ends a drag under way as if the mouse were released, so that it is recorded first. */
    void finishDrag();

Q_SIGNALS:
    /** A shape was made by `create` or `draw`; its undo step stands on the stack. */
    void created(ZTAbstractGraphicsItem *item);

    /** Shapes were created, imported or repeated; the view may want to show them. */
    void added(const QRectF &boxPx);

private:
    using Placing = std::function<void(ShapeItem &item)>;

    ShapeItem *createAt(ShapeType type, const Placing &placing);
    ShapeItem *addShape(ShapeType type);
    void moveApart(ShapeItem &item) const;
    ShapeItems copiesOfOne(int rows, int columns, const QSizeF &gapMm) const;
    ShapeItems copiesOfBlock(int rows, int columns, const QSizeF &gapMm) const;
    void setUpNew(ShapeItem &item) const;
    void tellSizes();
    void followSelection();
    ShapeItems selected() const;
    void push(QUndoCommand *command);

    ZTGraphicsDocument &m_document;
    NewShapeChoice m_newShape;
    ShapeItem *m_added = nullptr; ///< what the document has just made
};

} // namespace studio
