#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>

#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtGui/QPainter>
#include <QtGui/QPen>
#include <QtWidgets/QGraphicsScene>

#include <array>

namespace {

constexpr int kPenCount = 16;
using PenTable = std::array<QPen, kPenCount>;

PenTable makePenTable()
{
    static constexpr std::array<const char *, kPenCount> kColorNames = {
        "black",   "blue",   "cyan",   "goldenrod", "navy",   "green",     "grey",   "khaki",
        "magenta", "orange", "orchid", "red",       "salmon", "turquoise", "yellow", "fuchsia"};
    PenTable pens;
    for (std::size_t i = 0; i < pens.size(); ++i) {
        const QColor color{QLatin1String(kColorNames[i])};
        pens[i] =
            QPen(QBrush(color, Qt::SolidPattern), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    }
    return pens;
}

/** Pens are shared by all items and made once: building one for each paint costs more than it. */
const QPen &penOfId(int penId)
{
    static const PenTable pens = makePenTable();
    const bool isKnown = penId >= 1 && penId <= kPenCount;
    return pens[isKnown ? static_cast<std::size_t>(penId) - 1 : 0];
}

/** False for a position that is not a number, which QRectF takes for contained. */
bool isInside(const QRectF &rectPx, const QPointF &posPx)
{
    return rectPx.contains(posPx) && !qIsNaN(posPx.x()) && !qIsNaN(posPx.y());
}

} // namespace

ZTAbstractGraphicsItem::ZTAbstractGraphicsItem()
{
    setFlags(ItemIsSelectable | ItemSendsGeometryChanges);
}

ZTAbstractGraphicsItem::~ZTAbstractGraphicsItem()
{
    // Left to its base class, a selected item would report the change of selection when it is no
    // longer whole, and those who listen still know it.
    if (isSelected())
        setSelected(false);
    if (resizeItem)
        resizeItem->noteChildGone(this);
    delete shape;
}

bool ZTAbstractGraphicsItem::load(QDataStream &stream)
{
    if (shape != nullptr) {
        shape->load(stream);
        shape->paint();
    }
    prepareGeometryChange();
    noteChangedGeometry();
    return true;
}

QString ZTAbstractGraphicsItem::text() const { return {}; }

void ZTAbstractGraphicsItem::setText(const QString &) {}

void ZTAbstractGraphicsItem::scale(double x, double y)
{
    prepareGeometryChange();
    if (shape != nullptr)
        shape->setTransformParam(shape->getTransformParam() * QTransform::fromScale(x, y));
    updateResizeItem();
}

void ZTAbstractGraphicsItem::setSize(const QSizeF &sizePx)
{
    if (qFuzzyCompare(sizePx.width(), size.width()) &&
        qFuzzyCompare(sizePx.height(), size.height()))
        return;
    prepareGeometryChange();
    size = sizePx;
    Q_EMIT sizeChanged();
    updateResizeItem();
}

QSizeF ZTAbstractGraphicsItem::getSize() const { return size; }

void ZTAbstractGraphicsItem::setTransformParam(const QTransform &transform)
{
    if (shape == nullptr)
        return;
    prepareGeometryChange();
    shape->setTransformParam(transform);
    noteChangedGeometry();
    setSize(shape->controlPointRect().size());
    update();
}

QTransform &ZTAbstractGraphicsItem::getTransformParam()
{
    static QTransform none;
    if (shape != nullptr)
        return shape->getTransformParam();
    none.reset();
    return none;
}

ZTFillParam ZTAbstractGraphicsItem::getFillParam() const
{
    return shape != nullptr ? shape->getFillParam() : ZTFillParam();
}

void ZTAbstractGraphicsItem::setFillParam(const ZTFillParam &param)
{
    if (shape != nullptr)
        shape->setFillParam(param);
    update();
}

QRectF ZTAbstractGraphicsItem::boundingRect() const
{
    if (shape == nullptr)
        return {};
    QRectF rectPx = shape->controlPointRect();
    if (rectPx.isEmpty()) {
        shape->setUpdate(1);
        shape->paint();
        rectPx = shape->controlPointRect();
    }
    return rectPx;
}

void ZTAbstractGraphicsItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (shape == nullptr)
        return;
    painter->setPen(penOfId(shape->getPenId()));
    const bool isRebuilt = shape->isUpdate();
    shape->paint(); // of a host's shape, which may have a mark of its own, each time too
    if (isRebuilt)
        noteChangedGeometry();
    const ZTFillParam param = shape->getFillParam();
    if (param.isEnableBorder)
        painter->drawPath(shape->getLines());
    if (param.fillType != FillType::None)
        painter->drawLines(shape->getFillLines());
}

ZTShapeBase *ZTAbstractGraphicsItem::getShapeBase() const { return shape; }

ShapeType ZTAbstractGraphicsItem::getShapeType() const { return shapeType; }

void ZTAbstractGraphicsItem::setShapeType(ShapeType type) { shapeType = type; }

int ZTAbstractGraphicsItem::getPenId() const { return shape != nullptr ? shape->getPenId() : 1; }

void ZTAbstractGraphicsItem::setPenId(int penId)
{
    if (shape != nullptr)
        shape->setPenId(penId);
    update();
}

QPen ZTAbstractGraphicsItem::screenPen(int penId) { return penOfId(penId); }

ZTGraphicsResizeItem *ZTAbstractGraphicsItem::getResizeItem() const { return resizeItem; }

void ZTAbstractGraphicsItem::setResizeItem(ZTGraphicsResizeItem *frame) { resizeItem = frame; }

QVariant ZTAbstractGraphicsItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    switch (change) {
    case ItemPositionChange: {
        const QPointF posPx = value.toPointF();
        if (scene() != nullptr && !isInside(scene()->sceneRect(), posPx))
            return clampedToScene(posPx);
        break;
    }
    case ItemPositionHasChanged:
        Q_EMIT posChanged();
        updateResizeItem();
        break;
    case ItemParentHasChanged:
    case ItemTransformOriginPointHasChanged:
    case ItemZValueHasChanged:
    case ItemTransformHasChanged:
    case ItemRotationHasChanged:
    case ItemScaleHasChanged:
        noteChangedGeometry();
        break;
    default:
        break;
    }
    return QGraphicsItem::itemChange(change, value);
}

QPointF ZTAbstractGraphicsItem::clampedToScene(const QPointF &posPx) const
{
    const QRectF rectPx = scene()->sceneRect();
    return {qBound(rectPx.left(), posPx.x(), rectPx.right()),
            qBound(rectPx.top(), posPx.y(), rectPx.bottom())};
}

void ZTAbstractGraphicsItem::replaceShape(ZTShapeBase *replacement)
{
    prepareGeometryChange();
    if (shape != nullptr)
        replacement->setId(shape->getId());
    delete shape;
    shape = replacement;
    noteChangedGeometry();
}

void ZTAbstractGraphicsItem::rebuildShape()
{
    shape->setUpdate(1);
    shape->paint();
    noteChangedGeometry();
}

void ZTAbstractGraphicsItem::updateResizeItem()
{
    if (resizeItem)
        resizeItem->followChild(this);
}

void ZTAbstractGraphicsItem::noteChangedGeometry()
{
    if (resizeItem)
        resizeItem->noteChild(this);
}
