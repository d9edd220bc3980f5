#pragma once

#include <vectorkit/VectorPath.h>

#include <functional>
#include <vector>

namespace vectorkit {

/**
 * For each path the smallest closed one that it lies in, as an index among the paths; -1: none.
 *
 * A path lies in another one that holds its start and its box, and whose box is larger: of equal
 * outlines none holds the other. Frame: millimetres; curves are followed within 0.01 mm. Time:
 * grows little faster than the number of paths. Range: `progress` may be empty; it is told how
 * much is done, 0 to 1, and cancels with false. Failure: when cancelled, no entries.
 */
std::vector<int> holdersOf(const QVector<VectorPath> &paths,
                           const std::function<bool(double)> &progress = {});

} // namespace vectorkit
