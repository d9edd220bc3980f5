#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTDragButtons_p.h>
#include <ZTDrawEngineLib/items/ZTFrameSelection_p.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeHandle_p.h>
#include <ZTDrawEngineLib/items/commands/ZTItemPosCommand.h>
#include <ZTDrawEngineLib/items/commands/ZTItemTransformCommand.h>
#include <ZTDrawEngineLib/items/commands/ZTMoveStep_p.h>
#include <ZTDrawEngineLib/items/commands/ZTUndoStep_p.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtGui/QCursor>
#include <QtGui/QPainter>
#include <QtGui/QPen>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneHoverEvent>

#include <cmath>

namespace {

constexpr int kHandleCount = 8;

/** Least width and height of the frame: ratios divide by them. */
constexpr double kMinSizePx = 9.999999747378752e-05;

/** Places that differ by less are the same but for rounding. */
constexpr double kRoundingPx = 1e-9;

QPen framePen(const QColor &color, Qt::PenStyle style)
{
    return QPen(color, 0, style, Qt::SquareCap, Qt::BevelJoin);
}

QPointF scaled(const QPointF &offsetPx, double sx, double sy)
{
    return {offsetPx.x() * sx, offsetPx.y() * sy};
}

} // namespace

ZTGraphicsResizeItem::ZTGraphicsResizeItem(const QRectF &rect, QGraphicsItem *parent)
    : QGraphicsRectItem(rect, parent), m_selection(std::make_unique<ZTFrameSelection>())
{
    setFlags(ItemIsMovable | ItemSendsGeometryChanges);
    setAcceptHoverEvents(true);
    for (int i = 0; i < kHandleCount; ++i)
        m_handles.append(new ZTGraphicsResizeHandle(i, this));
    placeHandles();
}

ZTGraphicsResizeItem::~ZTGraphicsResizeItem()
{
    m_selection->endCarrying();
    for (const auto &item : m_selection->shapeItems()) {
        if (item->getResizeItem() == this)
            item->setResizeItem(nullptr);
    }
    while (!m_handles.isEmpty())
        delete m_handles.takeLast();
}

void ZTGraphicsResizeItem::setOutset(double devicePixels)
{
    prepareGeometryChange();
    m_outset = devicePixels;
    update();
}

void ZTGraphicsResizeItem::setHandleScale(double viewScale)
{
    prepareGeometryChange();
    m_handleScale = viewScale;
    for (ZTGraphicsResizeHandle *handle : qAsConst(m_handles))
        handle->place();
}

double ZTGraphicsResizeItem::getHandleScale() const { return m_handleScale; }

double ZTGraphicsResizeItem::getOutset() const { return m_outset; }

QRectF ZTGraphicsResizeItem::boundingRect() const
{
    const double outset = m_handleScale > 0.0 ? m_outset / m_handleScale : m_outset;
    return QGraphicsRectItem::boundingRect().adjusted(-outset, -outset, outset, outset);
}

void ZTGraphicsResizeItem::setUndoStack(QUndoStack *stack) { m_undoStack = stack; }

QUndoStack *ZTGraphicsResizeItem::getUndoStack() const { return m_undoStack; }

void ZTGraphicsResizeItem::setEnableResizeFromChild(bool enable)
{
    m_enableResizeFromChild = enable;
}

bool ZTGraphicsResizeItem::isEnableResizeFromChild() const { return m_enableResizeFromChild; }

const QList<QGraphicsItem *> &ZTGraphicsResizeItem::selectItem() const
{
    return m_selection->items(scene());
}

void ZTGraphicsResizeItem::setSelectItem(const QList<QGraphicsItem *> &items)
{
    endDrag();
    m_rotationAngle = 0.0;
    if (items.isEmpty()) {
        hide();
        for (const auto &item : m_selection->shapeItems())
            item->setResizeItem(nullptr);
        m_selection->assign(items);
    } else {
        m_selection->assign(items);
        m_selection->listFrameLast(*this);
        resizeFromChild();
        show();
    }
}

void ZTGraphicsResizeItem::setRect(const QRectF &rectPx)
{
    QRectF normalized = rectPx.normalized();
    if (rect() == normalized)
        return;
    if (normalized.width() < kMinSizePx)
        normalized.setWidth(kMinSizePx);
    if (normalized.height() < kMinSizePx)
        normalized.setHeight(kMinSizePx);
    QGraphicsRectItem::setRect(normalized);
    placeHandles();
    Q_EMIT sigSizeChanged();
}

void ZTGraphicsResizeItem::setRect(double x, double y, double width, double height)
{
    setRect(QRectF(x, y, width, height));
}

void ZTGraphicsResizeItem::setPos(const QPointF &posPx)
{
    setEnableResizeFromChild(false);
    storeOffsets(ITEM_OFFSET);
    QGraphicsRectItem::setPos(posPx);
    {
        ZTUndoStep step(m_undoStack, QStringLiteral("item setPos"));
        for (const auto &item : m_selection->shapeItems()) {
            if (!item)
                continue;
            const QPointF newPos = pos() + item->data(ITEM_OFFSET).toPointF();
            if (item->pos() != newPos)
                step.push(std::make_unique<ZTItemPosCommand>(item, item->pos(), newPos));
        }
    }
    setEnableResizeFromChild(true);
}

void ZTGraphicsResizeItem::setRotation(double angleDeg)
{
    m_rotationAngle = angleDeg;
    const QPointF center = pos() + rect().center();
    const double mmPerPx = ZTCoord::getInstance()->pix2mm(1.0);
    for (const auto &item : m_selection->shapeItems()) {
        if (!item)
            continue;
        const QPointF centerMm = item->mapFromScene(center) * mmPerPx;
        QTransform turn;
        turn.translate(centerMm.x(), centerMm.y());
        turn.rotate(angleDeg, Qt::ZAxis);
        turn.translate(-centerMm.x(), -centerMm.y());
        item->setTransformParam(item->getTransformParam() * turn);
    }
    resizeFromChild();
    Q_EMIT sigRotationChanged();
}

double ZTGraphicsResizeItem::rotation() const
{
    const QList<QGraphicsItem *> &items = selectItem();
    if (items.size() > 1)
        return m_rotationAngle;
    return items.isEmpty() ? 0.0 : items.first()->rotation();
}

void ZTGraphicsResizeItem::resizeFromChild()
{
    if (!m_enableResizeFromChild)
        return;
    const ZTSelectionBounds::Extent extent = m_selection->readExtent();
    for (const auto &item : m_selection->shapeItems())
        item->setResizeItem(this);
    fitAround(extent.rect(), extent.z());
}

void ZTGraphicsResizeItem::followChild(ZTAbstractGraphicsItem *child)
{
    if (!m_enableResizeFromChild) {
        m_selection->forgetExtents();
        return;
    }
    const ZTSelectionBounds::Extent extent = m_selection->extentAfterChangeOf(child);
    fitAround(extent.rect(), extent.z());
}

void ZTGraphicsResizeItem::noteChild(ZTAbstractGraphicsItem *child)
{
    if (m_enableResizeFromChild)
        m_selection->noteChange(child);
    else
        m_selection->forgetExtents();
}

void ZTGraphicsResizeItem::noteChildGone(ZTAbstractGraphicsItem *child)
{
    m_selection->noteGone(child);
}

void ZTGraphicsResizeItem::noteHandleGone(ZTGraphicsResizeHandle *handle)
{
    m_handles.removeOne(handle);
}

void ZTGraphicsResizeItem::fitAround(const QRectF &rectPx, double maxZ)
{
    setZValue(std::trunc(maxZ) + 1);
    const QPointF posBefore = pos();
    QGraphicsRectItem::setPos(rectPx.topLeft());
    if (pos() != posBefore)
        Q_EMIT sigPosChanged();
    setRect(0, 0, rectPx.width(), rectPx.height());
}

void ZTGraphicsResizeItem::placeHandles()
{
    for (ZTGraphicsResizeHandle *handle : qAsConst(m_handles))
        handle->place();
}

void ZTGraphicsResizeItem::storeOffsets(ItemDataKey key)
{
    for (QGraphicsItem *item : selectItem())
        item->setData(key, item->pos() - pos());
}

void ZTGraphicsResizeItem::rememberStarts()
{
    m_startPositions.clear();
    for (const auto &item : m_selection->shapeItems())
        m_startPositions.insert(item, item->pos());
}

// An offset is a rounded difference. Undo has to bring back the very position an item had, to the
// last bit, or what is marked after it would not be what was marked before.
QPointF ZTGraphicsResizeItem::snappedToStart(const ZTAbstractGraphicsItem *item,
                                             const QPointF &posPx) const
{
    const QPointF startPx = m_startPositions.value(item, posPx);
    const bool isRounding = (startPx - posPx).manhattanLength() < kRoundingPx;
    return isRounding || startPx == posPx ? startPx : posPx;
}

void ZTGraphicsResizeItem::beforeAdjust()
{
    rememberStarts();
    storeOffsets(START_POS);
    storeOffsets(ITEM_OFFSET);
    setData(START_POS, pos());
}

void ZTGraphicsResizeItem::item2Scene()
{
    const QRectF rectPx = rect();
    QGraphicsRectItem::setPos(pos() + rectPx.topLeft());
    setRect(0, 0, rectPx.width(), rectPx.height());
}

void ZTGraphicsResizeItem::updateChildSize()
{
    setEnableResizeFromChild(false);
    item2Scene();
    const QRectF startRectPx = data(FRAME_START_RECT).toRectF();
    // Kept: the frame stays disabled here. Hosts that drive the frame themselves rely on it.
    if (startRectPx.isEmpty())
        return;
    const Ratio ratio = resizeRatio(startRectPx);
    {
        ZTUndoStep step(m_undoStack, QStringLiteral("item resize"));
        for (const auto &item : m_selection->shapeItems())
            resizeChild(item, ratio);
    }
    setEnableResizeFromChild(true);
}

ZTGraphicsResizeItem::Ratio ZTGraphicsResizeItem::resizeRatio(const QRectF &startRectPx) const
{
    Ratio ratio = {rect().width() / startRectPx.width(), rect().height() / startRectPx.height()};
    if (!isAspectRatioLocked())
        return ratio;
    if (qFuzzyCompare(ratio.x, 1.0))
        ratio.x = ratio.y;
    else if (qFuzzyCompare(ratio.y, 1.0))
        ratio.y = ratio.x;
    else
        ratio.x = ratio.y = qMin(ratio.x, ratio.y);
    return ratio;
}

bool ZTGraphicsResizeItem::isAspectRatioLocked() const
{
    const QList<QGraphicsItem *> &items = selectItem();
    const auto *first =
        items.isEmpty() ? nullptr : dynamic_cast<ZTAbstractGraphicsItem *>(items.first());
    const ZTShapeBase *shape = first != nullptr ? first->getShapeBase() : nullptr;
    return shape != nullptr && shape->getLockAspectRatio();
}

void ZTGraphicsResizeItem::resizeChild(const QPointer<ZTAbstractGraphicsItem> &child, Ratio ratio)
{
    if (!child || child->getShapeBase() == nullptr)
        return;
    const QPointF offsetPx = child->data(START_POS).toPointF();
    const QPointF newPos = pos() + scaled(offsetPx, ratio.x, ratio.y);
    const QPointF oldPos = snappedToStart(child, data(START_POS).toPointF() + offsetPx);
    ZTUndoStep step(m_undoStack, QStringLiteral("item resize %1")
                                     .arg(child->getShapeBase()->getId(), 0, 10, QLatin1Char(' ')));
    if (oldPos != newPos)
        step.push(std::make_unique<ZTItemPosCommand>(child, oldPos, newPos));
    if (!child)
        return;
    const QTransform before = child->getTransformParam();
    child->scale(ratio.x, ratio.y);
    step.push(std::make_unique<ZTItemTransformCommand>(child, before, child->getTransformParam()));
}

void ZTGraphicsResizeItem::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (isFirstButton(event)) {
        m_isMoving = true;
        rememberStarts();
        setEnableResizeFromChild(false);
        storeOffsets(ITEM_OFFSET);
        setData(FRAME_START_RECT, QRectF());
        setData(START_POS, pos());
    }
    QGraphicsRectItem::mousePressEvent(event);
}

void ZTGraphicsResizeItem::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointF posBefore = pos();
    QGraphicsRectItem::mouseMoveEvent(event);
    if (pos() != posBefore)
        Q_EMIT sigPosChanged();
    placeHandles();
    carryItems();
}

void ZTGraphicsResizeItem::carryItems()
{
    if (m_isMoving && scene() != nullptr)
        m_selection->noteMove(*scene());
    if (ZTCarriedItems *carried = m_selection->carried())
        carried->beginMove();
    bool haveFollowed = true;
    for (const auto &item : m_selection->shapeItems()) {
        if (!item)
            continue;
        const QPointF toPx = snappedToStart(item, pos() + item->data(ITEM_OFFSET).toPointF());
        item->setPos(toPx);
        haveFollowed = haveFollowed && item && item->pos() == toPx;
    }
    for (QGraphicsItem *item : m_selection->foreignItems(scene()))
        item->setPos(pos() + item->data(ITEM_OFFSET).toPointF());
    if (ZTCarriedItems *carried = m_selection->carried())
        carried->noteMove(haveFollowed);
}

void ZTGraphicsResizeItem::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsRectItem::mouseReleaseEvent(event);
    if (isLastButton(event))
        finishMove();
}

bool ZTGraphicsResizeItem::sceneEvent(QEvent *event)
{
    // A drag that loses the mouse ends like one that is released: what moved stays undoable.
    if (event->type() == QEvent::UngrabMouse && m_isMoving) {
        LostRelease release;
        QGraphicsRectItem::mouseReleaseEvent(&release.event);
        finishMove();
    }
    return QGraphicsRectItem::sceneEvent(event);
}

void ZTGraphicsResizeItem::endDrag()
{
    QGraphicsItem *grabber = scene() != nullptr ? scene()->mouseGrabberItem() : nullptr;
    if (grabber != nullptr && (grabber == this || grabber->parentItem() == this))
        grabber->ungrabMouse();
}

void ZTGraphicsResizeItem::finishMove()
{
    m_isMoving = false;
    m_selection->endCarrying();
    item2Scene();
    const QPointF startPos = data(START_POS).toPointF();
    if (startPos != pos()) {
        const auto items = m_selection->shapeItems();
        ZTMoveStep step(m_undoStack, QStringLiteral("release item setPos"), items.size());
        for (const auto &item : items) {
            if (!item)
                continue;
            const QPointF itemStart =
                snappedToStart(item, startPos + item->data(ITEM_OFFSET).toPointF());
            if (item->pos() != itemStart)
                step.push(item, itemStart, item->pos());
        }
    }
    setEnableResizeFromChild(true);
}

void ZTGraphicsResizeItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *,
                                 QWidget *widget)
{
    if (ZTCarriedItems *carried = m_selection->carried())
        carried->paint(*painter, sceneTransform().inverted() * painter->worldTransform(),
                       scenePos(), widget);
    drawResizePoint(painter);
}

void ZTGraphicsResizeItem::drawResizePoint(QPainter *painter)
{
    const double scale = std::sqrt(std::abs(painter->worldTransform().determinant()));
    const double outset = scale > 0.0 ? m_outset / scale : 0.0;
    const QRectF shown = rect().adjusted(-outset, -outset, outset, outset);
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(framePen(Qt::white, Qt::SolidLine));
    painter->drawRect(shown);
    painter->setPen(framePen(Qt::blue, Qt::DashLine));
    painter->drawRect(shown);
    painter->restore();
}

void ZTGraphicsResizeItem::hoverEnterEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsRectItem::hoverEnterEvent(event);
    setCursor(Qt::SizeAllCursor);
}

void ZTGraphicsResizeItem::hoverLeaveEvent(QGraphicsSceneHoverEvent *) {}

QVariant ZTGraphicsResizeItem::itemChange(GraphicsItemChange, const QVariant &value)
{
    return value;
}
