#include "Factories.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace testsupport {

void registerFactories()
{
    ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance());
    ZTGraphicsItemFactory::regist("Ellipse", ZTEllipseItemFactory::getInstance());
    ZTGraphicsItemFactory::regist("Polygon", ZTPolygonItemFactory::getInstance());
    ZTGraphicsItemFactory::regist("Line", ZTLineItemFactory::getInstance());
    ZTGraphicsItemFactory::regist("TDOT", ZTTdotItemFactory::getInstance());
    ZTGraphicsItemFactory::regist("Text", ZTTextItemFactory::getInstance());
    ZTGraphicsItemFactory::regist("VecGraph", ZTVecGraphItemFactory::getInstance());
}

} // namespace testsupport
