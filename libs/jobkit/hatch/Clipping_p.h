#pragma once

#include <jobkit/hatch/AreaHatch.h>

#include <polyclipping/clipper.hpp>

namespace jobkit {

/** Whole steps in a millimetre: within 10,000 mm the clipper reckons in 64 bits. */
constexpr double kClipStepsMm = 100000.0;
/** The area in whole steps, by the rule; empty where a coordinate is out of range. */
ClipperLib::Paths clipPaths(const Area &area, ClipperLib::PolyFillType rule);

/** Closed outlines in millimetres, the first point repeated as the last. */
QPolygonF closedPolygon(const ClipperLib::Path &path);
Area areaOf(const ClipperLib::Paths &paths);

/** The paths moved inward; `arcToleranceMm` is how far a rounded corner may stand off its arc. */
ClipperLib::Paths movedInward(const ClipperLib::Paths &paths, double distanceMm,
                              double arcToleranceMm);

} // namespace jobkit
