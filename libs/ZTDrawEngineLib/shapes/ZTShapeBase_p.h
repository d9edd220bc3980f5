#pragma once

#include <ZTDrawEngineLib/common/Exactly_p.h>
#include <ZTDrawEngineLib/common/ZTFillParam.h>
#include <ZTDrawEngineLib/shapes/OutlineChanges_p.h>
#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <QtCore/QRectF>
#include <QtCore/QSharedData>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>

/** Record behind a shape; assigned shapes share one, copied shapes have their own. */
class ZTShapeBasePrivate : public QSharedData
{
public:
    QRectF rect{0, 0, 10, 10};         ///< millimetres, untransformed
    QPainterPath path;                 ///< millimetres, written by paint()
    QPainterPath lines;                ///< outline in scene pixels
    QRectF linesRect;                  ///< around it; asked for all shapes by whatever looks around
    zthatch::LateHatch fillLines;      ///< hatch in scene pixels
    QTransform transformParam;         ///< given by rotating, mirroring, resizing
    QTransform roundingTransformParam; ///< for text on an arc
    ZTFillParam fillParam;
    ShapeType shapeType = ShapeType::None;
    qint32 penId = 1;
    qint32 update = 0; ///< non-zero: the next paint() rebuilds
    qint32 id = 0;
    bool lockAspectRatio = false;

    void setLines(const QPainterPath &outline)
    {
        lines = outline;
        setLinesRect(lines.controlPointRect());
    }

    /** In the memory that the outline has, where nobody else looks at it. */
    void setLines(const QPolygonF &run)
    {
        lines.clear();
        lines.setFillRule(Qt::OddEvenFill);
        lines.addPolygon(run);
        setLinesRect(lines.controlPointRect());
    }

private:
    void setLinesRect(const QRectF &rectPx)
    {
        if (isExactly(rectPx, linesRect))
            return;
        linesRect = rectPx;
        // Shapes that share the record have changed all at once.
        ztoutlinechanges::note(ref.loadRelaxed() > 1 ? nullptr : &lines);
    }
};
