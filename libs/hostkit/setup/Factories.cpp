#include <hostkit/setup/Factories.h>

#include <hostkit/items/TextItem.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

namespace {

/**
 * Makes imported drawings as the library's factory does. One without a file is made empty at once:
 * the library's would look for the file of no name, and log that there is none.
 */
class ImportFactory : public Factory
{
public:
    static ImportFactory *getInstance()
    {
        static ImportFactory factory;
        return &factory;
    }

    ZTAbstractGraphicsItem *create() override
    {
        ZTVecGraphItemFactory &imports = *ZTVecGraphItemFactory::getInstance();
        if (!imports.path().isEmpty())
            return imports.create();
        imports.setPath(QStringLiteral(".plt")); // the one name that is not read
        ZTAbstractGraphicsItem *item = imports.create();
        static_cast<ZTVecGraph &>(*item->getShapeBase()).setDrawing({}, {});
        return item;
    }
};

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
    registerAs<ImportFactory>(ShapeType::VecGraph);
}

Factory *importFactory() { return ImportFactory::getInstance(); }

} // namespace hostkit
