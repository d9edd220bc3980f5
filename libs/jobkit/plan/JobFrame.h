#pragma once

#include <jobkit/plan/JobPlan.h>

namespace jobkit {

/** Shapes around a job. */
enum class FrameKind : quint8 { Box, Hull };

/**
 * What shows where a job will lie, to be run with a pilot light: its box or its convex hull, as one
 * closed polyline; a job on a line or a spot gives that line there and back, or the spot. Frame:
 * millimetres, as of the plan. Empty where the plan is.
 */
QPolygonF frameOf(const JobPlan &plan, FrameKind kind);

/** A plan of the frame alone, with the pen `framePen()`. */
JobPlan framePlan(const JobPlan &plan, FrameKind kind);

/** The pen of a frame: number 9999, no power, 100 mm/s. */
Pen framePen();

} // namespace jobkit
