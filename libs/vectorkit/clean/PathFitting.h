#pragma once

#include <vectorkit/VectorPath.h>

namespace vectorkit {

/**
 * The path with fewer points: of each run of straight lines those are left that keep it within
 * `toleranceMm` (greater than 0). Ends and curves stay; a closed path keeps its start.
 *
 * Time: grows with the number of points alone.
 */
VectorPath simplifiedPath(const VectorPath &path, double toleranceMm);

/**
 * The path with arcs for fine polylines: where at least five points in a row lie on a circle, and
 * their lines nowhere leave it, within `toleranceMm` (greater than 0); a closed run that is all one
 * circle becomes that circle.
 *
 * Frame: arcs begin and end on points of the path; straight runs stay lines.
 */
VectorPath arcFittedPath(const VectorPath &path, double toleranceMm);

} // namespace vectorkit
