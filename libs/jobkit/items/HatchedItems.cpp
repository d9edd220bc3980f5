#include <jobkit/items/HatchedItems.h>

#include <hostkit/items/HatchedShape.h>
#include <hostkit/items/TextItem.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/hatch/ShapeHatching.h>

#include <QtGui/QPainter>

#include <memory>

namespace jobkit {

namespace {

using hostkit::HatchedShape;

/** An item whose shape draws all hatches. `Base` is the library's or hostkit's item. */
template <class Base>
class Layered : public Base
{
public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override
    {
        ZTShapeBase &painted = *this->getShapeBase();
        if (painted.isUpdate()) {
            painted.paint();
            this->noteChangedGeometry();
        }
        if (!hostkit::paintHatchPens(*painter, *this))
            Base::paint(painter, option, widget);
    }
};

template <class Shape>
const Shape *shapeOf(const ZTAbstractGraphicsItem *item)
{
    return item != nullptr ? dynamic_cast<const Shape *>(item->getShapeBase()) : nullptr;
}

template <class Base, class Shape>
class HatchedItem final : public Layered<Base>
{
public:
    HatchedItem() { take(*shapeOf<Shape>(this)); }

    void copy(ZTAbstractGraphicsItem *source) override
    {
        if (const Shape *copied = shapeOf<Shape>(source)) {
            take(*copied);
            this->rebuildShape();
        }
    }

private:
    void take(const Shape &like) { this->replaceShape(new HatchedShape<Shape>(*this, like)); }
};

class HatchedPolygonItem final : public Layered<ZTGraphicsPolygonItem>
{
public:
    HatchedPolygonItem() { take(*shapeOf<ZTPolygonShape>(this)); }

    void copy(ZTAbstractGraphicsItem *source) override
    {
        if (const auto *copied = shapeOf<ZTPolygonShape>(source)) {
            take(*copied);
            rebuildShape();
        }
    }

private:
    void take(const ZTPolygonShape &like)
    {
        replacePolygonShape(new HatchedShape<ZTPolygonShape>(*this, like));
    }
};

class HatchedTextItem final : public Layered<hostkit::TextItem>
{
public:
    HatchedTextItem()
    {
        take(*shapeOf<ZTShapeText>(this));
        getShapeBase()->setUpdate(1);
    }

    void copy(ZTAbstractGraphicsItem *source) override
    {
        if (const auto *copied = shapeOf<ZTShapeText>(source)) {
            take(*copied);
            rebuildShape();
        }
    }

private:
    void take(const ZTShapeText &like)
    {
        replaceTextShape(new HatchedShape<hostkit::TextShape>(*this, like));
    }
};

/** An imported drawing, as the library's own item is. */
class HatchedImportItem final : public Layered<ZTAbstractGraphicsItem>
{
public:
    explicit HatchedImportItem(const ZTVecGraph &like) { take(like); }

    void copy(ZTAbstractGraphicsItem *source) override
    {
        const auto *copied = shapeOf<ZTVecGraph>(source);
        if (copied == nullptr)
            return;
        take(*copied);
        // As the library's item does: the file is read anew.
        auto &import = static_cast<ZTVecGraph &>(*getShapeBase());
        import.setImagePath(QString(import.getImagePath()));
        import.paint();
        noteChangedGeometry();
    }

private:
    void take(const ZTVecGraph &like) { replaceShape(new HatchedShape<ZTVecGraph>(*this, like)); }
};

template <class Item>
class ItemFactory final : public Factory
{
public:
    static Factory *instance()
    {
        static ItemFactory factory;
        return &factory;
    }
    ZTAbstractGraphicsItem *create() override { return new Item; }
};

class HatchedImportFactory final : public Factory
{
public:
    static Factory *instance()
    {
        static HatchedImportFactory factory;
        return &factory;
    }
    ZTAbstractGraphicsItem *create() override
    {
        const std::unique_ptr<ZTAbstractGraphicsItem> plain(hostkit::importFactory()->create());
        return new HatchedImportItem(*shapeOf<ZTVecGraph>(plain.get()));
    }
};

void registerAs(ShapeType type, Factory *factory)
{
    ZTGraphicsItemFactory::regist(ShapeType2String(type), factory);
}

} // namespace

void registerHatchedFactories()
{
    using RectItem = HatchedItem<ZTGraphicsRectItem, ZTRectShape>;
    using EllipseItem = HatchedItem<ZTGraphicsEllipseItem, ZTEllipseShape>;
    using TdotItem = HatchedItem<ZTGraphicsTdotItem, ZTTdotShape>;
    hostkit::setHatchDrawer({&drawHatches, &unitedOutline});
    registerAs(ShapeType::Rect, ItemFactory<RectItem>::instance());
    registerAs(ShapeType::Ellipse, ItemFactory<EllipseItem>::instance());
    registerAs(ShapeType::TDOT, ItemFactory<TdotItem>::instance());
    registerAs(ShapeType::Polygon, ItemFactory<HatchedPolygonItem>::instance());
    registerAs(ShapeType::Text, ItemFactory<HatchedTextItem>::instance());
    registerAs(ShapeType::VecGraph, HatchedImportFactory::instance());
}

} // namespace jobkit
