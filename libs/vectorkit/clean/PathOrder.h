#pragma once

#include <vectorkit/VectorPath.h>

#include <functional>

namespace vectorkit {

/**
 * Paths in an order of short ways: each time the one with the nearest end, run from there; an
 * outline comes after all that lie in it.
 *
 * Frame: begins at `startMm`. Open paths may come out reversed; closed ones keep their start.
 * Range: `progress` may be empty; it is told how much is done, 0 to 1, and cancels with false.
 * Failure: when cancelled, the paths as they were.
 */
QVector<VectorPath> orderedPaths(const QVector<VectorPath> &paths, const QPointF &startMm,
                                 const std::function<bool(double)> &progress = {});

/** Length of the ways between the end of each path and the start of the next. */
double jumpsMm(const QVector<VectorPath> &paths);

} // namespace vectorkit
