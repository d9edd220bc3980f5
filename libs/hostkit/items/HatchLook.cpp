#include <hostkit/items/HatchLook.h>

#include <QtCore/QVariant>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsView>

namespace hostkit {

namespace {

constexpr const char *kShare = "hostkit.hatchStrength"; ///< property of a viewport

} // namespace

void setHatchStrength(QGraphicsView &view, double share)
{
    view.viewport()->setProperty(kShare, qBound(0.0, share, 1.0));
    view.viewport()->update();
}

double hatchStrength(const QWidget *paintedOn)
{
    if (paintedOn == nullptr)
        return 1.0;
    const QVariant share = paintedOn->property(kShare);
    return share.isValid() ? share.toDouble() : 1.0;
}

QPen hatchPen(int penId, double share)
{
    QPen pen = ZTAbstractGraphicsItem::screenPen(penId);
    const QColor full = pen.color();
    const auto paled = [share](int part) { return qRound(255.0 - (255.0 - part) * share); };
    pen.setColor(QColor(paled(full.red()), paled(full.green()), paled(full.blue()), full.alpha()));
    return pen;
}

void paintPaleHatch(QPainter &painter, ZTShapeBase &shape, const QVector<HatchLayer> &layers,
                    double share)
{
    const QVector<QLineF> &lines = shape.getFillLines();
    for (const HatchLayer &layer : layers) {
        painter.setPen(hatchPen(layer.pen, share));
        painter.drawLines(lines.constData() + layer.firstLine, layer.lines);
    }
    if (!shape.getFillParam().isEnableBorder)
        return;
    painter.setPen(ZTAbstractGraphicsItem::screenPen(shape.getPenId()));
    painter.drawPath(shape.getLines());
}

} // namespace hostkit
