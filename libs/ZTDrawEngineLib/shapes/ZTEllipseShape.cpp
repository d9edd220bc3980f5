#include <ZTDrawEngineLib/shapes/ZTEllipseShape.h>

ZTEllipseShape::ZTEllipseShape()
{
    setShapeType(ShapeType::Ellipse);
    setUpdate(1);
}

void ZTEllipseShape::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    QPainterPath path;
    path.addEllipse(getRect());
    getPath() = path;
    path2Lines(true);
    fill();
}
