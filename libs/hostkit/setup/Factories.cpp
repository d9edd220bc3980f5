#include <hostkit/setup/Factories.h>

#include <hostkit/text/TextItem.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

namespace {

template <class ItemFactory>
void registerAs(ShapeType type)
{
    // The first factory under a name stays, so a second call is harmless.
    ZTGraphicsItemFactory::regist(ShapeType2String(type), ItemFactory::getInstance());
}

} // namespace

void registerFactories()
{
    registerAs<ZTRectItemFactory>(ShapeType::Rect);
    registerAs<ZTEllipseItemFactory>(ShapeType::Ellipse);
    registerAs<ZTPolygonItemFactory>(ShapeType::Polygon);
    registerAs<ZTLineItemFactory>(ShapeType::Line);
    registerAs<ZTTdotItemFactory>(ShapeType::TDOT);
    registerAs<TextItemFactory>(ShapeType::Text);
    registerAs<ZTVecGraphItemFactory>(ShapeType::VecGraph);
}

} // namespace hostkit
