#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QSizeF>
#include <QtWidgets/QGraphicsObject>

namespace studio {

/** How a shape is repeated. */
struct MatrixGrid
{
    int rows = 1;
    int columns = 1;
    QSizeF gapMm; ///< space between the boxes of the shapes

    qint64 cells() const { return qint64(rows) * columns; }

    /** Distance from one copy to the next. Frame: scene pixels. */
    QPointF pitchPx(const QRectF &boxPx) const;
};

/**
 * Shows where the copies of a matrix would stand, without making any: drawn outlines that belong
 * to no drawing, cannot be selected and let the mouse through.
 *
 * Draws what is in sight only, and plain boxes or one area where outlines would cost too much or
 * be too small to tell apart, so that any number of cells shows at once.
 */
class MatrixPreview : public QGraphicsObject
{
    Q_OBJECT

public:
    /** Adds itself to the scene, which owns it unless its maker deletes it first. */
    explicit MatrixPreview(ZTGraphicsScene &scene);

    /** Shows the copies of `sources` as one block; nothing without any. */
    void show(const ShapeItems &sources, const MatrixGrid &grid);

    QRectF boundingRect() const override { return m_extentPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    /** Cells from a first to behind a last one, in both directions. */
    struct CellRange
    {
        int firstColumn;
        int endColumn;
        int firstRow;
        int endRow;

        qint64 count() const { return qint64(endColumn - firstColumn) * (endRow - firstRow); }
    };

    CellRange cellsWithin(const QRectF &exposedPx) const;

    MatrixGrid m_shown;
    QPainterPath m_outlinePx; ///< of one copy, relative to its place
    QRectF m_boxPx;           ///< of one copy, relative to its place
    QPointF m_pitch;          ///< scene pixels
    QRectF m_extentPx;
};

} // namespace studio
