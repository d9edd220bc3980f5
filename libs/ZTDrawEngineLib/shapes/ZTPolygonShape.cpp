#include <ZTDrawEngineLib/shapes/ZTPolygonShape.h>

#include <QtCore/QDataStream>
#include <QtGui/QPolygonF>

#include <cmath>
#include <limits>

namespace {

constexpr int kMaxSideCount = 100000;

/** Whether the numbers describe something that can be drawn; false for NaN. */
bool isDrawable(double widthMm, int sideCount)
{
    return sideCount >= 1 && sideCount <= kMaxSideCount &&
           std::abs(widthMm) <= std::numeric_limits<qint32>::max();
}

/** Half the whole part of the width, in whole millimetres. */
float radiusOfWidth(double widthMm)
{
    const qint32 wholeMm = static_cast<qint32>(widthMm) / 2;
    return static_cast<float>(wholeMm);
}

QPolygonF regularPolygon(float radius, int sideCount)
{
    const double pi = std::acos(-1.0);
    QPolygonF polygon;
    polygon.reserve(sideCount + 1);
    for (int i = 0; i < sideCount; ++i) {
        const double angle = (i * -2.0 * pi) / sideCount;
        polygon << QPointF(radius * 1.0 * std::cos(angle - pi / 2),
                           radius * 1.0 * std::sin(angle - pi / 2));
    }
    polygon << polygon.first();
    polygon.translate(radius, radius);
    return polygon;
}

} // namespace

ZTPolygonShape::ZTPolygonShape()
{
    setShapeType(ShapeType::Polygon);
    setUpdate(1);
}

void ZTPolygonShape::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    QPainterPath path;
    const double width = getRect().width();
    if (isDrawable(width, m_sideCount))
        path.addPolygon(regularPolygon(radiusOfWidth(width), m_sideCount));
    getPath() = path;
    path2Lines(true);
    fill();
}

void ZTPolygonShape::setSideCount(int count)
{
    m_sideCount = count;
    setUpdate(1);
}

int ZTPolygonShape::getSideCount() { return m_sideCount; }

bool ZTPolygonShape::load(QDataStream &stream)
{
    stream >> m_sideCount;
    return true;
}

void ZTPolygonShape::save(QDataStream &stream) const { stream << m_sideCount; }
