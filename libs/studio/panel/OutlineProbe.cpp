#include <studio/panel/OutlineProbe.h>

namespace studio {

OutlineProbe::OutlineProbe(ShapeItem &item)
    : m_shape(*item.getShapeBase()), m_fill(m_shape.getFillParam()),
      m_transform(m_shape.getTransformParam())
{
}

OutlineProbe::~OutlineProbe()
{
    if (!m_isUsed)
        return;
    m_shape.setTransformParam(m_transform);
    m_shape.setFillParam(m_fill);
    m_shape.paint();
}

QRectF OutlineProbe::boxMm(const Placement &placement)
{
    if (!m_isUsed && m_fill.fillType != FillType::None) {
        ZTFillParam none = m_fill;
        none.fillType = FillType::None;
        m_shape.setFillParam(none);
    }
    m_isUsed = true;
    m_shape.setTransformParam(placement.transform);
    const QRectF boxPx = m_shape.controlPointRect().translated(placement.posPx);
    return ZTCoord::getInstance()->getPix2MmTransform().mapRect(boxPx);
}

} // namespace studio
