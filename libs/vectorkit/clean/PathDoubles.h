#pragma once

#include <vectorkit/VectorPath.h>

#include <functional>

namespace vectorkit {

/** What was taken out. */
struct DoubleFigures
{
    qint64 zeroLength = 0;  ///< pieces of no length
    qint64 doubled = 0;     ///< pieces, or parts of them, that another one covers
    double doubledMm = 0.0; ///< their length in all
};

/**
 * Paths without pieces of no length; what has no other pieces goes, dots with it.
 *
 * Frame: millimetres; no length is at most `withinMm`, at least 0.
 */
QVector<VectorPath> withoutZeroLength(const QVector<VectorPath> &paths, double withinMm,
                                      DoubleFigures *figures = nullptr);

/**
 * Paths without what is drawn twice: lines, or parts of lines, that lie on longer ones, and curves
 * equal to earlier ones, either way round.
 *
 * Frame: millimetres; `withinMm`, greater than 0, is how far two may lie apart and be the same.
 * What is left of a run that loses a piece in its middle are two runs. Range: `progress` may be
 * empty; it is told how much is done, 0 to 1, and cancels with false. Failure: when cancelled, the
 * paths as they were.
 */
QVector<VectorPath> withoutDoubles(const QVector<VectorPath> &paths, double withinMm,
                                   DoubleFigures *figures = nullptr,
                                   const std::function<bool(double)> &progress = {});

} // namespace vectorkit
