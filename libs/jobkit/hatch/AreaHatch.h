#pragma once

#include <QtCore/QVector>
#include <QtGui/QPolygonF>

namespace jobkit {

/**
 * Outlines that bound an area. Holes are outlines inside others, whatever their direction; an open
 * outline is taken as closed by its last chord.
 *
 * Frame: millimetres. Range: coordinates within 10,000 mm of (0, 0); what lies farther, or is no
 * number, makes the whole area empty.
 */
using Area = QVector<QPolygonF>;

/** How an area is filled with straight lines. */
struct LineHatch
{
    double spacingMm = 0.5;       ///< 0.005 to 1,000
    double angleDeg = 0.0;        ///< positive turns the lines clockwise on the screen
    double insetMm = 0.0;         ///< distance from the outline, from 0
    bool isOneWay = false;        ///< all lines in one direction; otherwise to and fro
    double turnEachPassDeg = 0.0; ///< added to the angle for each pass after the first
};

/** Limit: coordinates of an area, mm from (0, 0). */
constexpr double kMostCoordinateMm = 10000.0;

/** Limit: spacing in mm, and lines of one hatch. */
constexpr double kLeastSpacingMm = 0.005;
constexpr double kMostSpacingMm = 1000.0;
constexpr int kMostHatchLines = 5000000;

/**
 * Lines across an area, each a run of two points, row by row. A row lies in the middle of the area
 * or a whole number of spacings from there, so that a hatch does not change when its area moves.
 * `pass` counts from 0.
 *
 * Failure: empty where a value is out of its range, or more than `kMostHatchLines` would come.
 */
QVector<QPolygonF> lineHatch(const Area &area, const LineHatch &hatch, int pass = 0);

/** `lineHatch` twice, the second at a right angle to the first. */
QVector<QPolygonF> crossHatch(const Area &area, const LineHatch &hatch, int pass = 0);

/**
 * Offsets of the outline inward, `insetMm`, `insetMm` + spacing and so on, until nothing is left;
 * at 0 there is none, as there the outline itself is. Each stays within a hundredth of the spacing
 * of its distance. Where one lies next to the other they are joined by a short straight way, so
 * that the laser need not jump.
 *
 * Failure: empty where a value is out of its range, or more than `kMostHatchLines` would come.
 */
QVector<QPolygonF> contourHatch(const Area &area, double spacingMm, double insetMm = 0.0);

/** The area without a margin: what is farther from its outline than `insetMm`, from 0. */
Area insetArea(const Area &area, double insetMm);

/** What overlapping outlines cover together, as outlines that do not cross. */
Area unitedArea(const Area &area, Qt::FillRule rule = Qt::WindingFill);

} // namespace jobkit
