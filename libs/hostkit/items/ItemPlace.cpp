#include <hostkit/items/ItemPlace.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

namespace {

bool isBox(const QRectF &box)
{
    return qIsFinite(box.x()) && qIsFinite(box.y()) && qIsFinite(box.width()) &&
           qIsFinite(box.height()) && box.width() > 0.0 && box.height() > 0.0;
}

/** What makes `px` pixels so many millimetres; 1 where there is nothing to scale. */
double factor(double mm, double px)
{
    return px > 0.0 ? ZTCoord::getInstance()->mm2pix(mm) / px : 1.0;
}

} // namespace

QRectF boxMm(const ZTAbstractGraphicsItem &item)
{
    const QRectF boxPx = item.boundingRect().translated(item.pos());
    return ZTCoord::getInstance()->getPix2MmTransform().mapRect(boxPx);
}

void moveMiddleTo(ZTAbstractGraphicsItem &item, const QPointF &middleMm)
{
    const QTransform toPx = ZTCoord::getInstance()->getMm2pixTransform();
    item.setPos(toPx.map(middleMm) - item.boundingRect().center());
}

bool setBoxMm(ZTAbstractGraphicsItem &item, const QRectF &boxMm)
{
    const QRectF boxPx = item.boundingRect();
    if (!isBox(boxMm) || (boxPx.width() <= 0.0 && boxPx.height() <= 0.0))
        return false;
    item.scale(factor(boxMm.width(), boxPx.width()), factor(boxMm.height(), boxPx.height()));
    item.setSize(item.getShapeBase()->controlPointRect().size());
    moveMiddleTo(item, boxMm.center());
    return true;
}

} // namespace hostkit
