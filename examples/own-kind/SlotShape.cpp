#include "SlotShape.h"

#include <QtCore/QDataStream>

SlotShape::SlotShape()
{
    setShapeType(ShapeType::Point); // one of the types that no kind of the library uses
    setUpdate(1);
}

void SlotShape::setRadiusMm(double radiusMm)
{
    m_radiusMm = qMax(0.0, radiusMm);
    setUpdate(1);
}

void SlotShape::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    const QRectF box = getRect();
    const double radius = qMin(m_radiusMm, qMin(box.width(), box.height()) / 2.0);
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    getPath() = path;
    path2Lines(true); // from millimetres to straight lines in pixels, the transform included
    fill();           // the hatch, from those lines
}

bool SlotShape::load(QDataStream &stream)
{
    ZTShapeBase::load(stream);
    double radiusMm = 0.0;
    stream >> radiusMm;
    setRadiusMm(radiusMm);
    return true;
}

void SlotShape::save(QDataStream &stream) const
{
    ZTShapeBase::save(stream);
    stream << m_radiusMm;
}
