#include <ZTDrawEngineLib/shapes/ZTEllipseShape.h>

#include <ZTDrawEngineLib/common/ZTCurveTolerance.h>

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
    getPath() = ZTCurveTolerance::ellipse(getRect());
    path2Lines(true);
    fill();
}
