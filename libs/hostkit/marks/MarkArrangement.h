#pragma once

#include <hostkit/marks/MarkJob.h>

namespace hostkit {

/** Multiplies every coordinate of a graph, extents included. */
void enlargeMarkGraph(ZTMarkGraph *graph, double factor);

/**
 * Repeats all objects of a graph as a matrix, row by row; each copy holds the objects in the order
 * of the first.
 *
 * Frame: mark units. Range: at least one column and one row.
 */
void repeatMarkGraph(ZTMarkGraph *graph, int columns, int rows, const QSizeF &pitchMark);

/**
 * Orders a graph as `options` ask for and measures it before and after. Without outlines it is
 * ordered by them and hands over the hatches alone.
 *
 * Order: GUI thread; the sort kind of the process is as it was afterwards.
 */
void arrangeMarkGraph(ZTMarkGraph graph, const MarkUnits &units, const MarkJobOptions &options,
                      MarkJobResult *result);

} // namespace hostkit
