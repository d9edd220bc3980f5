#include <codekit/shape/CodeOverlay_p.h>

#include <QtGui/QPainter>

namespace codekit {

namespace {

constexpr double kCrossPx = 3.0; ///< width of its lines on the screen

QPen quietPen()
{
    QPen pen(Qt::gray, 0.0, Qt::DashLine);
    pen.setCosmetic(true);
    return pen;
}

QPen crossPen()
{
    QPen pen(Qt::red, kCrossPx);
    pen.setCosmetic(true);
    return pen;
}

} // namespace

CodeOverlay::CodeOverlay(QGraphicsItem *code) : QGraphicsItem(code)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setVisible(false);
}

void CodeOverlay::show(const QPolygonF &quietZonePx, const QPolygonF &crossedPx)
{
    if (quietZonePx == m_quietZonePx && crossedPx == m_crossedPx)
        return;
    prepareGeometryChange();
    m_quietZonePx = quietZonePx;
    m_crossedPx = crossedPx;
    setVisible(!m_quietZonePx.isEmpty() || !m_crossedPx.isEmpty());
    update();
}

QRectF CodeOverlay::boundingRect() const
{
    return (m_quietZonePx.boundingRect() | m_crossedPx.boundingRect())
        .adjusted(-kCrossPx, -kCrossPx, kCrossPx, kCrossPx);
}

void CodeOverlay::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setBrush(Qt::NoBrush);
    painter->setPen(quietPen());
    painter->drawPolygon(m_quietZonePx);
    if (m_crossedPx.size() < 4)
        return;
    painter->setPen(crossPen());
    painter->drawPolygon(m_crossedPx);
    painter->drawLine(m_crossedPx[0], m_crossedPx[2]);
    painter->drawLine(m_crossedPx[1], m_crossedPx[3]);
}

} // namespace codekit
