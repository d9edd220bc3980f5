#include <studio/canvas/ToolPreview.h>

#include <QtGui/QPainter>

namespace studio {

namespace {

constexpr double kAboveAll = 1e6;
const QColor kInk(0x1e, 0x6f, 0xd9);

} // namespace

ToolPreview::ToolPreview(ZTGraphicsScene &scene)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(kAboveAll);
    scene.addItem(this);
    // At the bottom of the order of places, so that it costs nothing when shapes above it go.
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        stackBefore(frame);
}

void ToolPreview::showOutline(const QPainterPath &outlinePx)
{
    prepareGeometryChange();
    m_outlinePx = outlinePx;
    update();
}

QRectF ToolPreview::boundingRect() const
{
    return m_outlinePx.controlPointRect().adjusted(-1, -1, 1, 1);
}

void ToolPreview::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(QPen(kInk, 0));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(m_outlinePx);
}

} // namespace studio
