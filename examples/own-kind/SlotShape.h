#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

/**
 * The shape's rectangle with round corners: a kind that the library does not have.
 *
 * Frame: millimetres, before the transform.
 */
class SlotShape : public ZTShapeBase
{
public:
    /** 10 by 10 mm with corners of 3 mm, marked for the first `paint()`. */
    SlotShape();

    double radiusMm() const { return m_radiusMm; } ///< of the corners
    void setRadiusMm(double radiusMm);             ///< 0 or more; the rectangle bounds it

    void paint() override;

    /** The base's fields, then the radius. */
    bool load(QDataStream &stream) override;
    void save(QDataStream &stream) const override;

private:
    double m_radiusMm = 3.0;
};
