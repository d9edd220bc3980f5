#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <vector>

namespace hostkit {

/**
 * Brings the objects of a graph into the order that the process's sort kind asks for, as
 * `ZTPointSort::markGraphSort` does, and keeps all of them: that chain ends at the first object
 * without an outline and drops what is left.
 *
 * A hatch without an outline is approached at the start of its first line and left at the end of
 * its last one. Objects that mark nothing come last, in the order they had. Objects themselves stay
 * as they are, and so does the graph's extent.
 *
 * Frame: mark units.
 * Order: GUI thread.
 */
void orderMarkGraph(ZTMarkGraph *graph);

/** That order, as the index of each object of a graph: every object once, and the graph stays. */
std::vector<int> markOrder(const ZTMarkGraph &graph);

} // namespace hostkit
