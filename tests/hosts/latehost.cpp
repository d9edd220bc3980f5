#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

// A plugin as hosts have them: plain C names, the library behind them.

/** Makes a drawing of one hatched square; how many hatch segments are marked of it. */
extern "C" Q_DECL_EXPORT int latehost_hatchSegments()
{
    ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance());
    ZTGraphicsDocument document;
    ZTAbstractGraphicsItem *square =
        document.itemMag()->addShape(ShapeType::Rect, QRectF(0.0, 0.0, 10.0, 10.0));
    square->setFillParam({FillType::Line, 2.0, 0.0, true});
    return document.itemMag()->getShapeLines().objects.first().fillLines.size();
}
