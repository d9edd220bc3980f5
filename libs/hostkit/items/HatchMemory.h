#pragma once

#include <hostkit/items/HatchDrawer.h>

namespace hostkit {

/**
 * What a shape's outline and hatches were last drawn from, and what came of it.
 *
 * A shape is filled anew whenever mark data are made, and most have not changed since: uniting a
 * text and clipping its hatches costs far more than to see that. Everything a drawer may look at is
 * held against what it was, to the last bit.
 */
class HatchMemory
{
public:
    /** The outline as `drawer` unites it. */
    QPainterPath united(const HatchDrawer &drawer, const QPainterPath &outlinePx);

    /** What hatches are drawn from. */
    struct Order
    {
        HatchDrawer drawer;
        QPainterPath outlinePx;
        ZTFillParam fill;
        QVector<ShapeHatch> hatches;
        double pxPerMm = 0.0;
    };

    bool isOf(const Order &order) const; ///< whether `drawing()` is what it asks for
    void keep(const Order &order, const HatchDrawing &drawing); ///< what came of an order
    const HatchDrawing &drawing() const { return m_drawing; }   ///< of the last order kept

private:
    struct United
    {
        QPainterPath (*unite)(const QPainterPath &outlinePx) = nullptr;
        QPainterPath fromPx;
        QPainterPath toPx;
        double pxPerMm = 0.0;
    };

    United m_united;
    Order m_order; ///< without a drawer: of nothing
    HatchDrawing m_drawing;
};

} // namespace hostkit
