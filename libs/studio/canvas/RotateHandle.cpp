#include <studio/canvas/RotateHandle.h>

#include <studio/canvas/PointerLabel.h>
#include <studio/canvas/ToolPreview.h>
#include <studio/edit/DocumentActions.h>

#include <QtCore/QtMath>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <cmath>

namespace studio {

namespace {

constexpr double kAboveAll = 9e5;
constexpr double kStepDeg = 15.0;
constexpr double kStalk = 44.0; ///< from the frame to the middle of the knob; pixels on the screen
constexpr double kHandles = 20.0; ///< of that the frame's own handle covers
constexpr double kRadius = 7.0;
constexpr int kMostElements = 100000; ///< of the outline that turns along; else the box does
const QColor kInk(Qt::blue);

/** An angle from -180 to 180. */
double shortest(double angleDeg) { return std::remainder(angleDeg, 360.0); }

QPainterPath outlinesOf(const ShapeItems &items, const QPointF &middlePx)
{
    QPainterPath outline;
    for (const ShapeItem *item : items) {
        outline.addPath(item->getShapeBase()->getLines().translated(item->pos() - middlePx));
        if (outline.elementCount() > kMostElements) {
            outline = QPainterPath();
            outline.addRect(sceneBox(items).translated(-middlePx));
            break;
        }
    }
    return outline;
}

} // namespace

/** What is seen of the handle and takes the mouse. */
class RotateKnob : public QGraphicsItem
{
public:
    explicit RotateKnob(RotateHandle &handle) : m_handle(handle)
    {
        setFlag(ItemIgnoresTransformations);
        setZValue(kAboveAll);
        setCursor(Qt::PointingHandCursor);
        setAcceptedMouseButtons(Qt::LeftButton);
        hide();
    }

    static QPointF middle() { return {0.0, -kStalk}; }

    QRectF boundingRect() const override
    {
        return QRectF(-kRadius - 2, -kStalk - kRadius - 2, 2 * kRadius + 4,
                      kStalk - kHandles + kRadius + 4);
    }
    QPainterPath shape() const override
    {
        QPainterPath knob;
        knob.addEllipse(middle(), kRadius + 2, kRadius + 2);
        return knob;
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        painter->setPen(QPen(kInk, 1));
        painter->setBrush(Qt::white);
        painter->drawLine(QPointF(0.0, -kHandles), middle() + QPointF(0.0, kRadius));
        painter->drawEllipse(middle(), kRadius, kRadius);
        painter->drawArc(QRectF(middle() - QPointF(3.5, 3.5), QSizeF(7, 7)), 0, 270 * 16);
        painter->setBrush(Qt::NoBrush);
    }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        m_handle.begin(event->scenePos());
        event->accept();
    }
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override
    {
        const QPoint pos =
            m_handle.m_document.view()->viewport()->mapFromGlobal(event->screenPos());
        m_handle.dragTo(event->scenePos(), pos, event->modifiers());
    }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *) override { m_handle.finish(); }
    bool sceneEvent(QEvent *event) override
    {
        if (event->type() == QEvent::UngrabMouse)
            m_handle.giveUp(); // the release went to somebody else
        return QGraphicsItem::sceneEvent(event);
    }

private:
    RotateHandle &m_handle;
};

RotateHandle::RotateHandle(ZTGraphicsDocument &document, DocumentActions &actions, QObject *parent)
    : QObject(parent), m_document(document), m_actions(actions),
      m_knob(std::make_unique<RotateKnob>(*this)),
      m_label(new PointerLabel(document.view()->viewport()))
{
    ZTGraphicsScene *scene = m_document.scene();
    ZTGraphicsResizeItem *frame = scene->getGraphicsResizeItem();
    scene->addItem(m_knob.get());
    m_knob->stackBefore(frame);
    connect(scene, &QGraphicsScene::selectionChanged, this, &RotateHandle::follow);
    connect(frame, &ZTGraphicsResizeItem::sigPosChanged, this, &RotateHandle::follow);
    connect(frame, &ZTGraphicsResizeItem::sigSizeChanged, this, &RotateHandle::follow);
    m_document.view()->installEventFilter(this);
}

RotateHandle::~RotateHandle() = default;

void RotateHandle::follow()
{
    const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    m_knob->setVisible(!m_isResting && !frame->selectItem().isEmpty());
    m_knob->setPos(frame->pos() + QPointF(frame->rect().center().x(), frame->rect().top()));
}

void RotateHandle::setResting(bool isResting)
{
    m_isResting = isResting;
    follow();
}

bool RotateHandle::isShown() const { return m_knob->isVisible(); }

QPoint RotateHandle::place() const
{
    return m_document.view()->mapFromScene(m_knob->pos()) + RotateKnob::middle().toPoint();
}

double RotateHandle::angleAt(const QPointF &placePx) const
{
    return QLineF(m_middlePx, placePx).angle();
}

void RotateHandle::begin(const QPointF &placePx)
{
    const ShapeItems items = selectedShapeItems(*m_document.scene());
    const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    m_middlePx = frame->pos() + frame->rect().center();
    m_startDeg = angleAt(placePx);
    m_turnDeg = 0.0;
    m_preview = std::make_unique<ToolPreview>(*m_document.scene());
    m_preview->setPos(m_middlePx);
    m_preview->showOutline(outlinesOf(items, m_middlePx));
}

void RotateHandle::dragTo(const QPointF &placePx, const QPointF &scenePos,
                          Qt::KeyboardModifiers keys)
{
    if (!m_preview)
        return;
    m_turnDeg = shortest(angleAt(placePx) - m_startDeg);
    if (keys.testFlag(Qt::ShiftModifier))
        m_turnDeg = std::round(m_turnDeg / kStepDeg) * kStepDeg;
    m_preview->setRotation(-m_turnDeg); // items turn clockwise
    const QString words = tr("%1°").arg(m_turnDeg, 0, 'f', 3);
    m_label->tell(words, scenePos.toPoint());
    Q_EMIT told(words);
}

void RotateHandle::finish()
{
    const bool isTurned = m_preview && m_turnDeg != 0.0;
    const double turnDeg = m_turnDeg;
    giveUp();
    if (isTurned)
        m_actions.rotate(-turnDeg);
}

void RotateHandle::giveUp()
{
    if (!m_preview)
        return;
    m_preview.reset();
    if (m_label)
        m_label->hide();
    Q_EMIT told(QString());
}

bool RotateHandle::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (!m_preview || !isKey || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return QObject::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        giveUp();
    return true;
}

} // namespace studio
