#include <studio/canvas/CanvasLines.h>

#include <QtGui/QPainter>

namespace studio {

namespace {

constexpr double kAboveAll = 1e6;

} // namespace

CanvasLines::CanvasLines(ZTGraphicsScene &scene, const QColor &color, Qt::PenStyle style)
    : m_pen(color, 0, style)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(kAboveAll);
    scene.addItem(this);
    // At the bottom of the order of places, so that it costs nothing when shapes above it go.
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        stackBefore(frame);
}

void CanvasLines::show(const QVector<QLineF> &linesPx)
{
    if (linesPx == m_linesPx)
        return;
    prepareGeometryChange();
    m_linesPx = linesPx;
    m_boxPx = QRectF();
    for (const QLineF &line : linesPx)
        m_boxPx |= QRectF(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1);
    update();
}

void CanvasLines::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->save(); // the view does not do it for its items
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(m_pen);
    painter->drawLines(m_linesPx);
    painter->restore();
}

} // namespace studio
