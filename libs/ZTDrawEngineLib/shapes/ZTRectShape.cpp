#include <ZTDrawEngineLib/shapes/ZTRectShape.h>

ZTRectShape::ZTRectShape()
{
    setShapeType(ShapeType::Rect);
    setUpdate(1);
}

void ZTRectShape::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    QPainterPath path;
    path.addRect(getRect());
    getPath() = path;
    path2Lines(true);
    fill();
}
