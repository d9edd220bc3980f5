#include <ZTDrawEngineLib/shapes/ZTLineShape.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/Reach_p.h>

ZTLineShape::ZTLineShape() : m_line(getRect().topLeft(), getRect().bottomRight())
{
    setShapeType(ShapeType::Line);
    setUpdate(1);
    ZTLineShape::paint();
}

void ZTLineShape::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    const QTransform lineToPx = getTransformParam() * ZTCoord::getInstance()->getMm2pixTransform();
    const QLineF linePx = lineToPx.map(m_line);
    m_angle = linePx.angle();
    m_length = getTransformParam().map(m_line).length();
    QPainterPath lines;
    if (isWithinReach(linePx.p1()) && isWithinReach(linePx.p2())) {
        lines.moveTo(linePx.p1());
        lines.lineTo(linePx.p2());
    }
    setLines(lines);
}

double ZTLineShape::angle() const { return m_angle; }

double ZTLineShape::length() const { return m_length; }

const QLineF &ZTLineShape::getLine() const { return m_line; }

void ZTLineShape::setLine(const QLineF &lineMm)
{
    m_line = lineMm;
    setUpdate(1);
    paint();
}

void ZTLineShape::takeTransformIntoLine() { m_line = getTransformParam().map(m_line); }

void ZTLineShape::setAngle(double angleDeg)
{
    m_angle = angleDeg;
    takeTransformIntoLine();
    m_line.setAngle(angleDeg);
    setTransformParam(QTransform());
}

void ZTLineShape::setLength(double lengthMm)
{
    if (qFuzzyCompare(lengthMm, 0.0))
        return;
    m_length = lengthMm;
    takeTransformIntoLine();
    m_line.setLength(lengthMm);
    setTransformParam(QTransform());
}
