#include <studio/arrange/CirclePreview.h>

#include <QtGui/QPainter>

#include <cmath>

namespace studio {

namespace {

constexpr double kAboveAll = 1e6;
constexpr int kMostElements = 200000; ///< of outlines drawn in one paint; else boxes are
const QColor kInk(0x1e, 0x6f, 0xd9);

QPainterPath outlineAround(const ShapeItems &sources, const QPointF &middlePx)
{
    QPainterPath outline;
    for (const ShapeItem *source : sources)
        outline.addPath(source->getShapeBase()->getLines().translated(source->pos() - middlePx));
    return outline;
}

} // namespace

CirclePreview::CirclePreview(ZTGraphicsScene &scene)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(kAboveAll);
    scene.addItem(this);
    // At the bottom of the order of places, so that it costs nothing when shapes above it go.
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        stackBefore(frame);
}

void CirclePreview::show(const ShapeItems &sources, const CircleArray &circle)
{
    prepareGeometryChange();
    m_circle = circle;
    m_outlinePx = QPainterPath();
    m_extentPx = QRectF();
    if (sources.isEmpty())
        return;
    const QRectF boxPx = sceneBox(sources);
    m_middlePx = boxPx.center();
    m_outlinePx = outlineAround(sources, m_middlePx);
    const qint64 elements = qint64(m_outlinePx.elementCount()) * circle.count;
    if (elements > kMostElements) {
        m_outlinePx = QPainterPath();
        m_outlinePx.addRect(boxPx.translated(-m_middlePx));
    }
    const QPointF radiusPx = m_middlePx - circle.centrePx;
    const double reachPx =
        std::hypot(radiusPx.x(), radiusPx.y()) + std::hypot(boxPx.width(), boxPx.height()) / 2 + 1;
    m_extentPx =
        QRectF(circle.centrePx - QPointF(reachPx, reachPx), QSizeF(2 * reachPx, 2 * reachPx));
    update();
}

void CirclePreview::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(QPen(kInk, 0, Qt::DashLine));
    painter->setBrush(Qt::NoBrush);
    const QTransform before = painter->worldTransform();
    for (int place = 1; place < m_circle.count; ++place) {
        const double angleDeg = -place * m_circle.stepDeg();
        const QPointF radiusPx = m_middlePx - m_circle.centrePx;
        const QPointF placePx = m_circle.centrePx + QTransform().rotate(angleDeg).map(radiusPx);
        QTransform there = QTransform::fromTranslate(placePx.x(), placePx.y());
        if (m_circle.turns)
            there.rotate(angleDeg);
        painter->setWorldTransform(there * before);
        painter->drawPath(m_outlinePx);
    }
    painter->setWorldTransform(before);
}

} // namespace studio
