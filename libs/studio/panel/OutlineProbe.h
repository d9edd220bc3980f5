#pragma once

#include <studio/shapes/ShapeMeasures.h>

namespace studio {

/**
 * Measures what the outline of a shape would be elsewhere, without the hatch, which takes time.
 *
 * A curve is made of chords after its transform: what is stretched to twice its size is only nearly
 * twice as large.
 *
 * Owner: the item is borrowed and outlives this, which gives it back all that it was.
 */
class OutlineProbe
{
public:
    explicit OutlineProbe(ShapeItem &item);
    ~OutlineProbe();
    OutlineProbe(const OutlineProbe &) = delete;
    OutlineProbe &operator=(const OutlineProbe &) = delete;

    /** Frame: millimetres, as `outlineBoxMm`. */
    QRectF boxMm(const Placement &placement);

private:
    ZTShapeBase &m_shape;
    const ZTFillParam m_fill;
    const QTransform m_transform;
    bool m_isUsed = false;
};

} // namespace studio
