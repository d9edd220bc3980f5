#include <hostkit/items/GraphicItems.h>

#include <hostkit/items/ItemExtras.h>

#include <vectorkit/edit/PainterPaths.h>

namespace hostkit {

namespace {

using vectorkit::VectorPath;

/** The library keeps the path of a shape for the shapes derived from it. */
class PathOfShape : public ZTShapeBase
{
public:
    using ZTShapeBase::getPath;
};

/** Kinds whose path holds all that they draw, before their transforms. */
bool isDrawnByPath(const ZTAbstractGraphicsItem &item)
{
    const ZTShapeBase *shape = item.getShapeBase();
    return dynamic_cast<const ZTRectShape *>(shape) != nullptr ||
           dynamic_cast<const ZTEllipseShape *>(shape) != nullptr ||
           dynamic_cast<const ZTPolygonShape *>(shape) != nullptr ||
           dynamic_cast<const ZTTdotShape *>(shape) != nullptr ||
           dynamic_cast<const ZTShapeText *>(shape) != nullptr;
}

QTransform ownToMm(ZTShapeBase &shape)
{
    return shape.getRoundingTransformParam() * shape.getTransformParam();
}

/** From a shape's millimetres after its transforms to those of the scene. */
QTransform placeOf(const ZTAbstractGraphicsItem &item)
{
    const QPointF wayMm = ZTCoord::getInstance()->getPix2MmTransform().map(item.pos());
    return QTransform::fromTranslate(wayMm.x(), wayMm.y());
}

QVector<VectorPath> transformed(const QVector<VectorPath> &paths, const QTransform &transform)
{
    QVector<VectorPath> result;
    result.reserve(paths.size());
    for (const VectorPath &path : paths)
        result.append(path.transformed(transform));
    return result;
}

} // namespace

const QString kNoDrawingFile = QStringLiteral(".plt");

ZTVecGraph *graphicOf(const ZTAbstractGraphicsItem &item)
{
    return dynamic_cast<ZTVecGraph *>(item.getShapeBase());
}

QVector<VectorPath> outlinesOf(const ZTAbstractGraphicsItem &item)
{
    ZTShapeBase *shape = item.getShapeBase();
    if (shape == nullptr)
        return {};
    shape->paint();
    if (const ZTVecGraph *graphic = graphicOf(item))
        return transformed(vectorkit::pathsOf(graphic->getDrawing()),
                           ownToMm(*shape) * placeOf(item));
    if (isDrawnByPath(item))
        return transformed(vectorkit::pathsOf((shape->*&PathOfShape::getPath)()),
                           ownToMm(*shape) * placeOf(item));
    const QTransform toMm = ZTCoord::getInstance()->getPix2MmTransform();
    return transformed(vectorkit::pathsOf(shape->getLines().translated(item.pos())), toMm);
}

ZTAbstractGraphicsItem *addGraphic(ZTGraphicsDocument &document, const QVector<VectorPath> &pathsMm,
                                   const std::optional<QPointF> &originMm)
{
    if (pathsMm.isEmpty())
        return nullptr;
    ZTVecGraphItemFactory::getInstance()->setPath(kNoDrawingFile);
    ZTAbstractGraphicsItem *item =
        document.itemMag()->addShape(ShapeType::VecGraph, {0, 0, 10, 10});
    ZTVecGraph *graphic = item != nullptr ? graphicOf(*item) : nullptr;
    if (graphic == nullptr)
        return nullptr;
    const QPointF cornerMm = originMm.value_or(vectorkit::boundsOf(pathsMm).topLeft());
    graphic->setDrawing(vectorkit::painterPathOf(pathsMm).translated(-cornerMm), kNoDrawingFile);
    // Painted through the item, which tells the scene of the new box.
    item->setTransformParam(QTransform());
    item->setPos(ZTCoord::getInstance()->getMm2pixTransform().map(cornerMm));
    return item;
}

bool drawingFor(const ZTAbstractGraphicsItem &item, const QVector<VectorPath> &pathsMm,
                QPainterPath *drawing)
{
    ZTVecGraph *graphic = graphicOf(item);
    if (graphic == nullptr)
        return false;
    bool isPossible = false;
    const QTransform toOwn = (ownToMm(*graphic) * placeOf(item)).inverted(&isPossible);
    if (isPossible)
        *drawing = vectorkit::painterPathOf(transformed(pathsMm, toOwn));
    return isPossible;
}

} // namespace hostkit
