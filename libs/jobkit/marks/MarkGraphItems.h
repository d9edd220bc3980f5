#pragma once

#include <jobkit/plan/JobPlan.h>

#include <hostkit/items/ItemHatches.h>
#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace jobkit {

/**
 * The objects of a mark graph as items of a job: the outlines, and the hatch lines as one hatch of
 * the object's pen, in runs that are never torn. Each item's `object` is its index in the graph.
 */
QVector<JobItem> itemsOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units);

/** The same with all hatches: `layers` of each object, as `MarkGraphBuilder::layers` has them. */
QVector<JobItem> itemsOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units,
                         const QVector<QVector<hostkit::HatchLayer>> &layers);

/**
 * Notes what a job has to know of the shape behind an item beside its marks: whether its dots are
 * meant, its numbers used up, and characters missing in its font. Dots that were imported, which
 * the drawing holds as lines of `hostkit::kDotMm`, become dots here.
 */
void describeShape(const ZTAbstractGraphicsItem &shape, JobItem *item);

/**
 * All that a drawing marks as items of a job, what is marked first first: every hatch with its pen,
 * its passes and its moment, names, and what `describeShape` notes. All at once: a program with a
 * window does the same step by step, through `hostkit::MarkGraphBuilder`.
 */
QVector<JobItem> itemsOfDrawing(const ZTGraphicsDocument &document);

} // namespace jobkit
