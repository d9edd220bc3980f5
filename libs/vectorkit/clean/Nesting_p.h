#pragma once

#include <vectorkit/VectorPath.h>

#include <vector>

namespace vectorkit {

/** For each path the smallest closed one that its start lies in and that holds its box; -1: none.
 */
std::vector<int> holdersOf(const QVector<VectorPath> &paths);

} // namespace vectorkit
