#include <studio/shapes/ShapePlace.h>

#include <QtWidgets/QGraphicsScene>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

constexpr double kGapMm = 2.0;
constexpr int kMostRings = 40; ///< of places around the middle that are looked at

ZTLineShape *lineOf(const ShapeItem &item)
{
    return dynamic_cast<ZTLineShape *>(item.getShapeBase());
}

/** The factors that bring a box to a size. */
QSizeF factorsFor(const ShapeItem &item, const QSizeF &fromPx, const QSizeF &toPx)
{
    const double across = fromPx.width() > 0.0 ? toPx.width() / fromPx.width() : 1.0;
    const double down = fromPx.height() > 0.0 ? toPx.height() / fromPx.height() : 1.0;
    if (dynamic_cast<const ZTGraphicsTextItem *>(&item) != nullptr)
        return {down, down};
    if (!isAspectLocked(item))
        return {across, down};
    return {qMin(across, down), qMin(across, down)};
}

void drawLine(ShapeItem &item, ZTLineShape &shape, const QLineF &linePx)
{
    const double mmPerPx = ZTCoord::getInstance()->pix2mm(1.0);
    item.setTransformParam(QTransform());
    item.setPos(linePx.p1());
    shape.setLine({QPointF(0.0, 0.0), (linePx.p2() - linePx.p1()) * mmPerPx});
    // Tells scene and frame of the new outline; the transform is the same.
    item.setTransformParam(QTransform());
}

bool isTaken(const QGraphicsScene &scene, const QRectF &boxPx, const ShapeItem *apart)
{
    const QList<QGraphicsItem *> there = scene.items(boxPx, Qt::IntersectsItemBoundingRect);
    return std::any_of(there.begin(), there.end(), [apart](const QGraphicsItem *candidate) {
        const auto *item = dynamic_cast<const ShapeItem *>(candidate);
        return item != nullptr && item != apart;
    });
}

} // namespace

bool isLine(const ShapeItem &item) { return lineOf(item) != nullptr; }

void moveTopLeft(ShapeItem &item, const QPointF &topLeftPx)
{
    item.setPos(topLeftPx - item.boundingRect().topLeft());
}

void placeShape(ShapeItem &item, const ShapePlace &place)
{
    if (ZTLineShape *line = place.linePx ? lineOf(item) : nullptr) {
        drawLine(item, *line, *place.linePx);
        return;
    }
    if (!place.boxPx.isEmpty()) {
        const QSizeF factors = factorsFor(item, item.boundingRect().size(), place.boxPx.size());
        item.setTransformParam(item.getTransformParam() *
                               QTransform::fromScale(factors.width(), factors.height()));
    }
    moveTopLeft(item, place.boxPx.topLeft());
}

std::optional<QRectF> freePlace(const QGraphicsScene &scene, const QSizeF &sizePx,
                                const QRectF &areaPx, const ShapeItem *apart)
{
    const double gapPx = ZTCoord::getInstance()->mm2pix(kGapMm);
    const QSizeF stepPx = sizePx + QSizeF(gapPx, gapPx);
    QRectF middle(QPointF(), sizePx);
    middle.moveCenter(areaPx.center());
    for (int ring = 0; ring <= kMostRings; ++ring) {
        bool isInside = false;
        for (int row = -ring; row <= ring; ++row) {
            const int step = qMax(1, std::abs(row) == ring ? 1 : 2 * ring);
            for (int column = -ring; column <= ring; column += step) {
                const QRectF place =
                    middle.translated(column * stepPx.width(), row * stepPx.height());
                if (ring > 0 && !areaPx.contains(place))
                    continue;
                isInside = true;
                if (!isTaken(scene, place.adjusted(-gapPx, -gapPx, gapPx, gapPx), apart))
                    return place;
            }
        }
        if (!isInside)
            break;
    }
    return std::nullopt;
}

} // namespace studio
