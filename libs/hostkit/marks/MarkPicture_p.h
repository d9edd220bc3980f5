#pragma once

#include <hostkit/marks/MarkPathWalk.h>
#include <hostkit/marks/MarkUnits.h>

#include <QtGui/QColor>

namespace hostkit {

/** Colour and width of one kind of line in a picture of mark data. */
struct PictureStroke
{
    QColor color;
    double widthMm = 0.0;
};

/** The look that all pictures of mark data share. Frame: millimetres, y downward. */
struct MarkPicture
{
    QRectF pageMm; ///< everything that is marked or jumped, with a margin; never empty
    PictureStroke hatch;
    PictureStroke outline;
    PictureStroke jumpInside;  ///< jumps from piece to piece of one object
    PictureStroke jumpBetween; ///< jumps from object to object
    QColor startColor;
    double startRadiusMm = 0.0;
    bool hasStart = false; ///< false for a graph with nothing to mark
    QPointF startMm;       ///< where the head begins
};

/** Lays the picture out: a page around the graph, line widths that suit its size. */
MarkPicture layOutMarkPicture(const ZTMarkGraph &graph, const MarkUnits &units);

/**
 * Arrow heads on the marks, each an open angle of three points on the first piece that has a
 * length. Frame: mark units.
 */
QVector<QPolygonF> markArrows(const ZTMarkGraph &graph, const MarkPicture &picture,
                              const MarkUnits &units);

/** Whether a picture can show the point: damaged mark data may hold coordinates that are none. */
bool canShow(const QPointF &point);

} // namespace hostkit
