#include <ZTDrawEngineLib/items/ZTGraphicsResizeHandle_p.h>

#include <ZTDrawEngineLib/items/ZTDragButtons_p.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>

#include <QtGui/QCursor>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/** What makes one handle different from the others. */
struct HandleKind
{
    double anchorX; ///< share of the rectangle's width
    double anchorY; ///< share of the rectangle's height
    QPointF shift;  ///< in device pixels; puts the handle just outside the frame
    Qt::CursorShape cursor;
    void (*drag)(QRectF &rectPx, const QPointF &handlePos);
};

void dragTopLeft(QRectF &rectPx, const QPointF &pos) { rectPx.setTopLeft(pos); }
void dragTopRight(QRectF &rectPx, const QPointF &pos) { rectPx.setTopRight(pos); }
void dragBottomLeft(QRectF &rectPx, const QPointF &pos) { rectPx.setBottomLeft(pos); }
void dragBottomRight(QRectF &rectPx, const QPointF &pos) { rectPx.setBottomRight(pos); }
void dragTop(QRectF &rectPx, const QPointF &pos) { rectPx.setTop(pos.y()); }
void dragLeft(QRectF &rectPx, const QPointF &pos) { rectPx.setLeft(pos.x()); }
void dragRight(QRectF &rectPx, const QPointF &pos) { rectPx.setRight(pos.x()); }
void dragBottom(QRectF &rectPx, const QPointF &pos) { rectPx.setBottom(pos.y()); }

const HandleKind &kindOf(int index)
{
    static const std::array<HandleKind, 8> kinds = {{
        {0.0, 0.0, {-20, -20}, Qt::SizeFDiagCursor, dragTopLeft},
        {1.0, 0.0, {1, -20}, Qt::SizeBDiagCursor, dragTopRight},
        {0.0, 1.0, {-20, 1}, Qt::SizeBDiagCursor, dragBottomLeft},
        {1.0, 1.0, {1, 1}, Qt::SizeFDiagCursor, dragBottomRight},
        {0.5, 0.0, {-10, -20}, Qt::SizeVerCursor, dragTop},
        {0.0, 0.5, {-20, -10}, Qt::SizeHorCursor, dragLeft},
        {1.0, 0.5, {1, -10}, Qt::SizeHorCursor, dragRight},
        {0.5, 1.0, {-10, 1}, Qt::SizeVerCursor, dragBottom},
    }};
    return kinds.at(static_cast<std::size_t>(index));
}

constexpr double kSide = 20.0; ///< of a handle, in device pixels

/** How far a handle at an end of a side makes way for the one in the middle of that direction. */
double wayOf(double anchor, double sidePx)
{
    if (anchor == 0.5)
        return 0.0;
    const double lackPx = std::max(0.0, (kSide - std::abs(sidePx)) / 2.0);
    return anchor == 0.0 ? -lackPx : lackPx;
}

/** What a handle moves so that all can be seen around a rectangle of that size on the screen. */
QPointF roomOf(const HandleKind &kind, const QSizeF &sizePx)
{
    if (sizePx.isNull())
        return {};
    return {wayOf(kind.anchorX, sizePx.width()), wayOf(kind.anchorY, sizePx.height())};
}

} // namespace

ZTGraphicsResizeHandle::ZTGraphicsResizeHandle(int handleIndex, ZTGraphicsResizeItem *parentFrame)
    : QGraphicsRectItem(QRectF(0, 0, 20, 20), parentFrame), m_index(handleIndex),
      m_frame(parentFrame)
{
    setFlags(ItemIsMovable | ItemIgnoresTransformations);
    setAcceptHoverEvents(true);
    const QPointF shift = kindOf(m_index).shift;
    setTransform(QTransform::fromTranslate(shift.x(), shift.y()));
}

ZTGraphicsResizeHandle::~ZTGraphicsResizeHandle()
{
    if (m_frame != nullptr)
        m_frame->noteHandleGone(this);
}

void ZTGraphicsResizeHandle::place()
{
    if (m_frame == nullptr)
        return;
    const QRectF rectPx = m_frame->rect();
    const HandleKind &kind = kindOf(m_index);
    setPos(rectPx.x() + kind.anchorX * rectPx.width(), rectPx.y() + kind.anchorY * rectPx.height());
    const QPointF shift = kind.shift + roomOf(kind, rectPx.size() * m_frame->getHandleScale());
    setTransform(QTransform::fromTranslate(shift.x(), shift.y()));
}

void ZTGraphicsResizeHandle::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(Qt::blue);
    painter->setBrush(Qt::NoBrush);
    painter->drawEllipse(rect());
}

void ZTGraphicsResizeHandle::hoverEnterEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsRectItem::hoverEnterEvent(event);
    setCursor(kindOf(m_index).cursor);
}

void ZTGraphicsResizeHandle::hoverLeaveEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsRectItem::hoverLeaveEvent(event);
}

void ZTGraphicsResizeHandle::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsRectItem::mousePressEvent(event);
    if (m_frame == nullptr || !isFirstButton(event))
        return;
    m_isDragging = true;
    m_frame->setData(ZTGraphicsResizeItem::FRAME_START_RECT, m_frame->rect());
    m_frame->beforeAdjust();
}

void ZTGraphicsResizeHandle::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsRectItem::mouseMoveEvent(event);
    if (m_frame == nullptr)
        return;
    QRectF rectPx = m_frame->rect();
    kindOf(m_index).drag(rectPx, pos());
    m_frame->setRect(rectPx);
    place();
}

void ZTGraphicsResizeHandle::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsRectItem::mouseReleaseEvent(event);
    if (m_frame == nullptr || !isLastButton(event))
        return;
    m_isDragging = false;
    m_frame->updateChildSize();
    m_frame->resizeFromChild();
}

bool ZTGraphicsResizeHandle::sceneEvent(QEvent *event)
{
    // A drag that loses the mouse has resized nothing yet: the frame goes back to its items.
    if (event->type() == QEvent::UngrabMouse && m_isDragging && m_frame != nullptr) {
        m_isDragging = false;
        LostRelease release;
        QGraphicsRectItem::mouseReleaseEvent(&release.event);
        m_frame->resizeFromChild();
    }
    return QGraphicsRectItem::sceneEvent(event);
}

QVariant ZTGraphicsResizeHandle::itemChange(GraphicsItemChange, const QVariant &value)
{
    return value;
}
