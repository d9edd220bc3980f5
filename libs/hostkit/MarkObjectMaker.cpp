#include <hostkit/MarkObjectMaker.h>

namespace hostkit {

namespace {

QRectF extentOf(ZTShapeBase &shape, const QPointF &posPx, const QSizeF &scale)
{
    QRectF extentPx = shape.controlPointRect();
    extentPx.moveTo(posPx);
    const double sx = qAbs(scale.width());
    const double sy = qAbs(scale.height());
    return QRectF(extentPx.x() * sx, extentPx.y() * sy, extentPx.width() * sx,
                  extentPx.height() * sy);
}

QVector<QLineF> hatchOf(const ZTShapeBase &shape, const QPointF &posPx, const QSizeF &scale)
{
    const auto toMark = [&](const QPointF &point) {
        return QPointF((point.x() + posPx.x()) * scale.width(),
                       (point.y() + posPx.y()) * scale.height());
    };
    QVector<QLineF> hatch;
    hatch.reserve(shape.getFillLines().size());
    for (const QLineF &line : shape.getFillLines())
        hatch.append(QLineF(toMark(line.p1()), toMark(line.p2())));
    return hatch;
}

} // namespace

ZTMarkObject makeMarkObject(ZTShapeBase &shape, const QPointF &posPx, const QSizeF &scale)
{
    shape.setUpdate(1);
    shape.paint();

    ZTMarkObject object;
    object.penId = shape.getPenId();
    object.rect = extentOf(shape, posPx, scale);
    const ZTFillParam fill = shape.getFillParam();
    if (fill.isEnableBorder) {
        const QTransform toMark = QTransform::fromTranslate(posPx.x(), posPx.y()) *
                                  QTransform::fromScale(scale.width(), scale.height());
        object.lines = shape.getLines().toSubpathPolygons(toMark);
    }
    // A shape switched to no hatch keeps its old lines: the style decides, not the lines.
    if (fill.fillType != FillType::None)
        object.fillLines = hatchOf(shape, posPx, scale);
    return object;
}

ZTMarkObject movedMarkObject(const ZTMarkObject &object, const QPointF &byMark)
{
    ZTMarkObject moved = object;
    for (QPolygonF &polygon : moved.lines)
        polygon.translate(byMark);
    for (QLineF &line : moved.fillLines)
        line.translate(byMark);
    moved.rect.translate(byMark);
    return moved;
}

} // namespace hostkit
