#pragma once

#include <jobkit/plan/JobPlan.h>

#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace jobkit {

/**
 * The objects of a mark graph as items of a job: the outlines, and the hatch lines as one hatch of
 * the object's pen, in runs that are never torn. Each item's `object` is its index in the graph.
 */
QVector<JobItem> itemsOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units);

} // namespace jobkit
