#pragma once

#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

/** What a mark graph amounts to, counted and measured in the order in which a head follows it. */
struct MarkPathMeasure
{
    qint64 objects = 0;       ///< entries of the graph, those with nothing to mark included
    qint64 polylines = 0;     ///< outlines with at least one point
    qint64 hatchSegments = 0; ///< hatch lines
    double markMm = 0.0;      ///< length marked: outlines and hatch
    double jumpMm = 0.0;      ///< length of the moves between the pieces, see `walkMarkPath`
};

MarkPathMeasure measureMarkPath(const ZTMarkGraph &graph, const MarkUnits &units);

} // namespace hostkit
