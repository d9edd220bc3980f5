#pragma once

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

/**
 * A straight line. It has neither a path nor a hatch of its own, whatever the fill parameters say.
 *
 * Unlike other shapes it paints when it is made, so that angle and length can be read at once.
 */
class ZTDRAWENGINELIB_EXPORT ZTLineShape : public ZTShapeBase
{
public:
    /** The diagonal from (0, 0) to (10, 10) mm, painted. */
    ZTLineShape();

    void paint() override;

    double angle() const;  ///< degrees, counter-clockwise from three o'clock, after the transform
    double length() const; ///< millimetres, after the transform

    /**
     * Turns the line about its first point to the angle, in degrees.
     *
     * The transform so far is taken into the line and becomes the identity. Paints.
     */
    void setAngle(double angleDeg);

    /**
     * Gives the line a length in millimetres, its first point staying; otherwise as `setAngle`.
     *
     * Failure: a length of exactly 0 changes nothing, so that a line never shrinks to a point.
     */
    void setLength(double lengthMm);

    /** The line itself in millimetres, before the transform. */
    const QLineF &getLine() const;

    /** Gives the line its ends, in millimetres before the transform, which stays. Paints. */
    void setLine(const QLineF &lineMm);

private:
    void takeTransformIntoLine();

    QLineF m_line; ///< millimetres, before the transform
    double m_angle = 0;
    double m_length = 0;
};
