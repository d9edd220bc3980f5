#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtGui/QTransform>

namespace studio {

/** Sizes of an ellipse along its own axes. Frame: millimetres. */
struct Diameters
{
    double first = 0.0;  ///< along the axis that was across when the ellipse was drawn
    double second = 0.0; ///< along the other one
};

/** Where a shape stands and what it is turned and stretched by: all that placing changes. */
struct Placement
{
    /** The present one of a shape. */
    Placement(ShapeItem &placed) // NOLINT: a shape stands for where it is
        : item(&placed), posPx(placed.pos()), transform(placed.getTransformParam())
    {
    }
    Placement(ShapeItem *placed, const QPointF &atPx, const QTransform &by)
        : item(placed), posPx(atPx), transform(by)
    {
    }
    Placement() = default;

    ShapeItem *item = nullptr;
    QPointF posPx;
    QTransform transform; ///< works on millimetres
};

/**
 * Box of a shape's outline on the field, as one would measure it on the part: with its transform
 * and its place, and without the hatch.
 *
 * Frame: millimetres, y downward. Null for an item without a shape.
 */
QRectF outlineBoxMm(const ShapeItem &item);

/** Box around the outlines of shapes; null for none. Frame: millimetres. */
QRectF outlineBoxMm(const ShapeItems &items);

/**
 * The direction in which a shape's own right points, counter-clockwise on the screen, 0 pointing
 * right; of a line, the direction from its start to its end. A mirrored shape counts as mirrored
 * left to right before it was turned.
 *
 * Range: above -180 to 180 degrees.
 */
double turnDeg(const ShapeItem &item);

/** Whether a shape is seen as in a mirror. */
bool isMirrored(const ShapeItem &item);

/** An angle brought into the range above -180 to 180 degrees. */
double wrappedDeg(double angleDeg);

/** Diameters of an ellipse as it stands, turned or stretched. */
Diameters diametersMm(const ShapeItem &ellipse);

// Placements that a change would give; nothing is changed yet.

Placement moved(const Placement &from, const QPointF &byMm);

/** Stretched across and down the field, so that `anchorMm` stays. */
Placement stretched(const Placement &from, const QPointF &anchorMm, double across, double down);

/** Turned counter-clockwise about a point. */
Placement turned(const Placement &from, const QPointF &aboutMm, double byDeg);

/** An ellipse stretched along its own axes about the middle of its box. */
Placement withDiameters(ShapeItem &ellipse, const Diameters &diameters);

} // namespace studio
