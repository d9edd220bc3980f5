#include <hostkit/items/HatchDrawer.h>

#include <QtGui/QPainter>

#include <algorithm>

namespace hostkit {

namespace {

HatchDrawer &drawerOfProcess()
{
    static HatchDrawer drawer;
    return drawer;
}

} // namespace

const HatchDrawer &hatchDrawer() { return drawerOfProcess(); }

void setHatchDrawer(const HatchDrawer &drawer) { drawerOfProcess() = drawer; }

bool paintHatchPens(QPainter &painter, const ZTAbstractGraphicsItem &item)
{
    ZTShapeBase &shape = *item.getShapeBase();
    const int shapePen = shape.getPenId();
    const QVector<HatchLayer> layers = hatchLayersOf(item);
    const bool hasOtherPen =
        std::any_of(layers.begin(), layers.end(),
                    [shapePen](const HatchLayer &layer) { return layer.pen != shapePen; });
    if (!hasOtherPen)
        return false;
    if (shape.getFillParam().isEnableBorder) {
        painter.setPen(ZTAbstractGraphicsItem::screenPen(shapePen));
        painter.drawPath(shape.getLines());
    }
    const QVector<QLineF> &lines = shape.getFillLines();
    for (const HatchLayer &layer : layers) {
        painter.setPen(ZTAbstractGraphicsItem::screenPen(layer.pen));
        painter.drawLines(lines.constData() + layer.firstLine, layer.lines);
    }
    return true;
}

} // namespace hostkit
