#pragma once

#include <vectorkit/VectorPath.h>

#include <functional>

namespace vectorkit {

/** What joining did. */
struct JoinFigures
{
    qint64 joined = 0; ///< pairs of ends that are one point now
    qint64 closed = 0; ///< outlines that were open
};

/**
 * Runs joined where their ends lie within a distance, and closed where they come back to their
 * start. Ends that meet exactly are joined first; of others the nearest.
 *
 * Frame: millimetres; an end moves by at most `withinMm`, and to an end of an arc a short line
 * leads where they do not meet. Runs may come out reversed; the order is that of their first
 * pieces. Range: `withinMm` at least 0; 0 joins what meets exactly. `progress` may be empty; it is
 * told how much is done, 0 to 1, and cancels with false. Failure: empty paths are left out; when
 * cancelled, the paths as they were.
 */
QVector<VectorPath> joinedPaths(const QVector<VectorPath> &paths, double withinMm,
                                JoinFigures *figures = nullptr,
                                const std::function<bool(double)> &progress = {});

} // namespace vectorkit
