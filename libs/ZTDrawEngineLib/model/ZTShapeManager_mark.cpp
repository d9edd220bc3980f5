#include <ZTDrawEngineLib/model/ZTShapeManager.h>

#include <ZTDrawEngineLib/common/StraightRun_p.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>
#include <ZTDrawEngineLib/model/ZTPointSort.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>
#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <cmath>
#include <limits>

namespace {

/** Takes points of an item into mark units: first the item's position, then the scale. */
struct ToMark
{
    QPointF posPx;
    double sx;
    double sy;

    QPointF operator()(const QPointF &point) const
    {
        return {(point.x() + posPx.x()) * sx, (point.y() + posPx.y()) * sy};
    }
};

// Kept: the bounding rectangle's corner, not the item's origin, comes to the item's position, and
// the scale loses its sign.
QRectF extentOf(const ZTAbstractGraphicsItem &item, const ToMark &toMark)
{
    QRectF box = item.boundingRect();
    box.moveTo(toMark.posPx);
    const double sx = std::abs(toMark.sx);
    const double sy = std::abs(toMark.sy);
    return {box.left() * sx, box.top() * sy, box.width() * sx, box.height() * sy};
}

QList<QPolygonF> outlineOf(const ZTShapeBase &shape, const ToMark &toMark)
{
    const QTransform move = QTransform::fromTranslate(toMark.posPx.x(), toMark.posPx.y());
    const QTransform toMarkUnits = move * QTransform::fromScale(toMark.sx, toMark.sy);
    const QPainterPath &outline = shape.getLines();
    if (!isStraightRun(outline))
        return outline.toSubpathPolygons(toMarkUnits);
    QPolygonF run;
    mapStraightRun(outline, toMarkUnits, run);
    return {run};
}

QVector<QLineF> hatchOf(const ZTShapeBase &shape, const ToMark &toMark)
{
    QVector<QLineF> hatch = shape.getFillLines();
    for (QLineF &line : hatch)
        line.setPoints(toMark(line.p1()), toMark(line.p2()));
    return hatch;
}

/** Side by side: one that is as it was keeps its hatch when it is painted anew. */
void layOutHatchesOf(const QList<QGraphicsItem *> &items)
{
    if (zthatch::LateHatch::waitingCount() == 0)
        return;
    QVector<const ZTShapeBase *> shapes;
    for (const QGraphicsItem *candidate : items) {
        if (const auto *item = dynamic_cast<const ZTAbstractGraphicsItem *>(candidate))
            shapes << item->getShapeBase();
    }
    ZTShapeBase::layOutHatches(shapes, std::numeric_limits<int>::max());
}

} // namespace

void ZTShapeManager::genMarkObject(ZTAbstractGraphicsItem *item, ZTShapeBase *shape,
                                   ZTMarkObject &object)
{
    shape->setUpdate(1);
    shape->paint();

    const ToMark toMark{item->pos(), m_scaleX, m_scaleY};
    const ZTFillParam fillParam = shape->getFillParam();
    ZTMarkObject made;
    made.rect = extentOf(*item, toMark);
    if (fillParam.isEnableBorder)
        made.lines = outlineOf(*shape, toMark);
    if (fillParam.fillType != FillType::None)
        made.fillLines = hatchOf(*shape, toMark);
    made.penId = shape->getPenId();
    object = std::move(made);
}

ZTMarkGraph ZTShapeManager::getShapeLines()
{
    return markGraphOf(m_scene->items(Qt::DescendingOrder));
}

ZTMarkGraph ZTShapeManager::getSelectedShapeLines()
{
    return markGraphOf(m_scene->selectedItems());
}

ZTMarkGraph ZTShapeManager::markGraphOf(const QList<QGraphicsItem *> &items)
{
    layOutHatchesOf(items);
    ZTMarkGraph graph;
    graph.objects.reserve(items.size());
    for (QGraphicsItem *candidate : items) {
        auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate);
        if (item == nullptr || item->getShapeBase() == nullptr)
            continue;
        ZTMarkObject object;
        genMarkObject(item, item->getShapeBase(), object);
        graph.rect |= object.rect;
        graph.objects.append(std::move(object));
    }
    return ZTPointSort::getInstance()->markGraphSort(graph);
}
