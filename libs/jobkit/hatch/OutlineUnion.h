#pragma once

#include <jobkit/hatch/AreaHatch.h>

namespace jobkit {

/**
 * Which outlines of a shape overlap, as groups of their indexes, each in ascending order: those
 * that cross, those that lie in another one that turns the same way round, and what lies within
 * the box of such a group. Outlines that do not overlap are in no group; holes, which turn the
 * other way round, do not overlap the outline around them.
 *
 * Outlines that are open, or not finite, are in no group.
 */
QVector<QVector<int>> overlappingOutlines(const Area &outlines);

} // namespace jobkit
