#pragma once

#include <studio/ShapeItems.h>
#include <studio/commands/ItemGeometryCommand.h>

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
     */
    void create(ShapeType type);

    /** A shape that was drawn with the mouse. */
    void draw(ShapeType type, const ShapePlace &place);

    /** Copies of the selected shapes stay in this group, if they are in it. */
    void setEnteredGroup(const QVector<qint32> &path) { m_enteredGroup = path; }

    void duplicate();
    void removeSelected();
    void clear(); ///< empties the drawing and the undo stack

    void selectAll();
    void invertSelection();
    void clearSelection();

    void nudge(const QPointF &byMm);
    void align(Qt::Alignment alignment); ///< two or more shapes, within the box around them
    void mirror(MirrorCommand::Kind kind);
    void rotate(double angleDeg); ///< about the frame's middle; positive is clockwise

    /**
     * Repeats the one selected shape in rows and columns and selects the copies.
     *
     * @param gapMm space between the shapes' boxes, in x and y
     * @param isNumbered each copy of a variant text or code has its next value, row by row
     * @return shapes made; 0 if not exactly one is selected, or more than `kMaxMatrix` would stand
     */
    int repeat(int rows, int columns, const QSizeF &gapMm, bool isNumbered = false);

    void setPen(int pen);           ///< of all selected shapes
    void lockAspect(bool isLocked); ///< of all selected shapes

    void undo();
    void redo();

    /** Ends a drag under way as if the mouse were released, so that it is recorded first. */
    void finishDrag();

Q_SIGNALS:
    /** Shapes were created, imported or repeated; the view may want to show them. */
    void added(const QRectF &boxPx);

private:
    using Placing = std::function<void(ShapeItem &item)>;

    void createAt(ShapeType type, const Placing &placing);
    void moveApart(ShapeItem &item) const;
    void recordCreated(ShapeItem *item);
    void followSelection();
    ShapeItems selected() const;
    void push(QUndoCommand *command);

    ZTGraphicsDocument &m_document;
    Placing m_placing; ///< of the shape that is being created; empty: it stays where it is
    QVector<qint32> m_enteredGroup;
};

} // namespace studio
