#pragma once

#include <studio/shapes/ShapeItems.h>

#include <vectorkit/VectorPath.h>

#include <QtGui/QPainterPath>
#include <QtWidgets/QUndoCommand>

namespace studio {

/** New outlines of a vector graphic. Frame: millimetres on the scene. */
struct OutlineChange
{
    ShapeItem *item; ///< borrowed from the drawing
    QVector<vectorkit::VectorPath> pathsMm;
};

/** The same in the graphic's own frame. */
struct DrawingChange
{
    ShapeItem *item; ///< borrowed from the drawing
    QPainterPath drawing;
};

/**
 * Other outlines of vector graphics, which keep their place, transform, pen, hatch and extras.
 *
 * A graphic whose transform squeezes everything flat, a shape of another kind and one that others
 * delete are passed over.
 */
class OutlinesCommand : public QUndoCommand
{
public:
    OutlinesCommand(const QVector<OutlineChange> &changes, const QString &text);
    OutlinesCommand(const QVector<DrawingChange> &changes, const QString &text);

    void undo() override;
    void redo() override;

private:
    struct Change
    {
        QPointer<ShapeItem> item;
        QPainterPath before; ///< in the graphic's own frame
        QPainterPath after;
        QString nameBefore; ///< of the file that the drawing came from
    };

    void take(ShapeItem &item, const QPainterPath &drawing);
    static void give(const Change &change, const QPainterPath &drawing, const QString &name);

    QVector<Change> m_changes;
};

} // namespace studio
