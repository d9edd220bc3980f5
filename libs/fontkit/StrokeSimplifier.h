#pragma once

#include <QtCore/QPointF>
#include <QtCore/QVector>

namespace fontkit {

/**
 * Makes strokes of many short segments fit for a font: smooth where they are meant to bend, and of
 * no more points than that takes.
 *
 * Frame: any; lengths in the unit of the strokes. Ends of a stroke stay where they are.
 */
struct StrokeSimplifier
{
    double tolerance = 0.0;      ///< how far a point that is left out may lie from the stroke
    double smoothingReach = 0.0; ///< how far smoothing may leave the stroke; 0 for none
    double cornerDeg = 60.0;     ///< a turn of at least this much is a corner, and stays one

    /**
     * The stroke after smoothing and simplifying.
     *
     * No point of it is farther than `smoothingReach` from the stroke, and no point of the stroke
     * farther from it than `smoothingReach` and `tolerance` together.
     */
    QVector<QPointF> apply(const QVector<QPointF> &stroke) const;

    /**
     * The stroke with a curve through its points in the place of straight lines (a centripetal
     * Catmull-Rom spline, as many straight pieces as `tolerance` asks for), corners kept.
     */
    QVector<QPointF> smoothed(const QVector<QPointF> &stroke) const;

    /** The stroke without the points it can spare (Douglas and Peucker). */
    QVector<QPointF> simplified(const QVector<QPointF> &stroke) const;
};

/** How far a point lies from the line between two others. */
double distanceToSegment(const QPointF &point, const QPointF &from, const QPointF &to);

} // namespace fontkit
