#include <hostkit/items/HatchMemory.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <cmath>

namespace hostkit {

namespace {

/** Not for -0 and 0; what is no number is like nothing. */
bool isExactly(double a, double b) { return a == b && std::signbit(a) == std::signbit(b); }

/** Unlike the operator of the class, which takes nearly equal ones for equal. */
bool isExactly(const QPainterPath &a, const QPainterPath &b)
{
    if (a.elementCount() != b.elementCount() || a.fillRule() != b.fillRule())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        const QPainterPath::Element &left = a.elementAt(i);
        const QPainterPath::Element &right = b.elementAt(i);
        if (left.type != right.type || !isExactly(left.x, right.x) || !isExactly(left.y, right.y))
            return false;
    }
    return true;
}

/** Unlike the operator of the record, which takes nearly equal ones for equal. */
bool isExactly(const ZTFillParam &a, const ZTFillParam &b)
{
    return a.fillType == b.fillType && a.isEnableBorder == b.isEnableBorder &&
           isExactly(a.spac, b.spac) && isExactly(a.angle, b.angle);
}

} // namespace

QPainterPath HatchMemory::united(const HatchDrawer &drawer, const QPainterPath &outlinePx)
{
    const double pxPerMm = ZTCoord::getInstance()->mm2pix(1.0);
    if (m_united.unite != drawer.unite || !isExactly(m_united.pxPerMm, pxPerMm) ||
        !isExactly(m_united.fromPx, outlinePx))
        m_united = {drawer.unite, outlinePx, drawer.unite(outlinePx), pxPerMm};
    return m_united.toPx;
}

bool HatchMemory::isOf(const Order &order) const
{
    return order.drawer.draw != nullptr && m_order.drawer.draw == order.drawer.draw &&
           isExactly(m_order.pxPerMm, order.pxPerMm) && isExactly(m_order.fill, order.fill) &&
           m_order.hatches == order.hatches && isExactly(m_order.outlinePx, order.outlinePx);
}

void HatchMemory::keep(const Order &order, const HatchDrawing &drawing)
{
    m_order = order;
    m_drawing = drawing;
}

} // namespace hostkit
