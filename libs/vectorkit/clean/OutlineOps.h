#pragma once

#include <vectorkit/VectorPath.h>

namespace vectorkit {

/** How two sets of outlines are taken together. */
enum class OutlineOp : quint8 {
    Union,
    Difference, ///< the first without the second
    Intersection,
    Exclusion ///< what is in one of them alone
};

/** How the corners of an offset outline are made. */
enum class OffsetCorner : quint8 { Round, Miter, Square };

/**
 * The area of two sets of outlines taken together, as closed outlines that neither cross nor touch
 * along a line: an even-odd and a winding fill of them are the same.
 *
 * Frame: millimetres; curves are flattened within `toleranceMm`, and points lie on a grid of 0.01
 * µm. Range: open paths are taken as closed; `rule` holds for both sets; within 1e9 mm. Order:
 * outer outlines run counter-clockwise on the screen, holes the other way round. Failure: no
 * outlines where no area is left.
 */
QVector<VectorPath> combinedOutlines(OutlineOp op, const QVector<VectorPath> &first,
                                     const QVector<VectorPath> &second, Qt::FillRule rule,
                                     double toleranceMm);

/** Overlapping outlines made one: the union of a set with itself, under the rule of its fill. */
QVector<VectorPath> weldedOutlines(const QVector<VectorPath> &outlines, Qt::FillRule rule,
                                   double toleranceMm);

/**
 * Outlines at a distance from an area: outside for a positive one, inside for a negative one.
 *
 * Frame: as `combinedOutlines`. Open paths are taken as closed.
 */
QVector<VectorPath> offsetOutlines(const QVector<VectorPath> &outlines, Qt::FillRule rule,
                                   double distanceMm, OffsetCorner corner, double toleranceMm);

} // namespace vectorkit
