#include <ZTDrawEngineLib/items/ZTCarriedItems_p.h>

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QSet>
#include <QtWidgets/QStyleOptionGraphicsItem>
#include <QtWidgets/QWidget>

namespace {

/** What has fewer strokes is drawn within a frame of the screen. */
constexpr int kFewStrokes = 2000;

/** The index is begun again for each move when at least so great a part of the scene is carried. */
constexpr int kPartOfScene = 4;

/** Picture beyond what is in sight, as part of it: a drag brings it in. */
constexpr double kMargin = 0.25;

/** An outline reaches beyond its box by the width of its pen. */
constexpr double kPenPx = 2.0;

int strokeCount(const ZTCarriedItems::Items &items)
{
    int strokes = 0;
    for (const auto &item : items) {
        const ZTShapeBase *shape = item ? item->getShapeBase() : nullptr;
        if (shape != nullptr)
            strokes += shape->getLines().elementCount() + shape->getFillLines().size();
    }
    return strokes;
}

/** Whether the scene draws an item just as its `paint` does. */
bool isPlainlyDrawn(const ZTAbstractGraphicsItem &item)
{
    constexpr QGraphicsItem::GraphicsItemFlags kDrawnOtherwise =
        QGraphicsItem::ItemHasNoContents | QGraphicsItem::ItemIgnoresTransformations |
        QGraphicsItem::ItemClipsToShape | QGraphicsItem::ItemClipsChildrenToShape;
    return item.isVisible() && !(item.flags() & kDrawnOtherwise) && item.parentItem() == nullptr &&
           item.childItems().isEmpty() && item.graphicsEffect() == nullptr &&
           item.effectiveOpacity() == 1.0 && item.cacheMode() == QGraphicsItem::NoCache;
}

ZTCarriedItems::Items fromBelow(const QGraphicsScene &scene, const ZTCarriedItems::Items &items)
{
    QSet<const QGraphicsItem *> wanted;
    wanted.reserve(items.size());
    for (const auto &item : items) {
        if (item && isPlainlyDrawn(*item))
            wanted.insert(item.data());
    }
    ZTCarriedItems::Items sorted;
    sorted.reserve(wanted.size());
    const QList<QGraphicsItem *> all = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem *candidate : all) {
        if (wanted.contains(candidate))
            sorted.append(static_cast<ZTAbstractGraphicsItem *>(candidate));
    }
    return sorted;
}

QTransform withoutShift(const QTransform &t)
{
    return {t.m11(), t.m12(), t.m13(), t.m21(), t.m22(), t.m23(), 0.0, 0.0, t.m33()};
}

QRectF withPen(const QRectF &rect) { return rect.adjusted(-kPenPx, -kPenPx, kPenPx, kPenPx); }

QRectF grown(const QRectF &rect, double part)
{
    const double dx = part * rect.width();
    const double dy = part * rect.height();
    return rect.adjusted(-dx, -dy, dx, dy);
}

} // namespace

std::unique_ptr<ZTCarriedItems> ZTCarriedItems::of(QGraphicsScene &scene, const Items &items)
{
    if (strokeCount(items) <= kFewStrokes)
        return nullptr;
    return std::unique_ptr<ZTCarriedItems>(new ZTCarriedItems(scene, items));
}

ZTCarriedItems::ZTCarriedItems(QGraphicsScene &scene, const Items &items)
    : m_scene(&scene), m_items(fromBelow(scene, items))
{
    if (kPartOfScene * items.size() >= scene.items().size())
        m_shallowIndex = std::make_unique<ZTShallowIndex>(scene);
    scene.update();
    for (const auto &item : qAsConst(m_items))
        item->setFlag(QGraphicsItem::ItemHasNoContents);
}

ZTCarriedItems::~ZTCarriedItems()
{
    if (m_scene)
        m_scene->update();
    for (const auto &item : qAsConst(m_items)) {
        if (item)
            item->setFlag(QGraphicsItem::ItemHasNoContents, false);
    }
}

void ZTCarriedItems::beginMove()
{
    if (!m_scene)
        return;
    m_scene->update();
    if (m_shallowIndex)
        forgetPlaces(*m_scene);
}

void ZTCarriedItems::noteMove(bool haveAllFollowed)
{
    if (!haveAllFollowed || !m_haveAllFollowed)
        m_picture = {};
    m_haveAllFollowed = haveAllFollowed;
}

void ZTCarriedItems::paint(QPainter &painter, const QTransform &sceneToPainter,
                           const QPointF &framePosPx, QWidget *view)
{
    painter.save();
    if (view == nullptr) {
        paintItems(painter, sceneToPainter, view);
    } else {
        const double ratio = painter.device()->devicePixelRatioF();
        const QTransform sceneToDevice = sceneToPainter * QTransform::fromScale(ratio, ratio);
        const QRectF shown(QPointF(), QSizeF(view->size()) * ratio);
        if (!isPictureGood(sceneToDevice, framePosPx, shown, ratio)) {
            takePicture(sceneToDevice, shown, ratio, painter.renderHints(), view);
            m_picture.framePosPx = framePosPx;
        }
        const QPoint topLeft = m_picture.topLeft + shift(sceneToDevice, framePosPx);
        painter.setWorldTransform(QTransform());
        painter.drawImage(QPointF(topLeft) / ratio, m_picture.image);
    }
    painter.restore();
}

/** How far the picture has come since it was taken, in pixels of the device. */
QPoint ZTCarriedItems::shift(const QTransform &sceneToDevice, const QPointF &framePosPx) const
{
    return (sceneToDevice.map(framePosPx) - m_picture.sceneToDevice.map(m_picture.framePosPx))
        .toPoint();
}

bool ZTCarriedItems::isPictureGood(const QTransform &sceneToDevice, const QPointF &framePosPx,
                                   const QRectF &shown, double ratio) const
{
    if (m_picture.image.isNull() || m_picture.image.devicePixelRatioF() != ratio ||
        withoutShift(m_picture.sceneToDevice) != withoutShift(sceneToDevice))
        return false;
    const QRectF movedPx = m_picture.boxPx.translated(framePosPx - m_picture.framePosPx);
    const QRect pictured(m_picture.topLeft + shift(sceneToDevice, framePosPx),
                         m_picture.image.size());
    return m_picture.isWhole ||
           QRectF(pictured).contains(withPen(sceneToDevice.mapRect(movedPx)).intersected(shown));
}

void ZTCarriedItems::takePicture(const QTransform &sceneToDevice, const QRectF &shown, double ratio,
                                 QPainter::RenderHints hints, QWidget *view)
{
    m_picture.boxPx = boxPx();
    const QRectF box = withPen(sceneToDevice.mapRect(m_picture.boxPx));
    const QRectF wanted = grown(shown, kMargin);
    const QRect area = box.intersected(wanted).toAlignedRect();
    m_picture.sceneToDevice = sceneToDevice;
    m_picture.topLeft = area.topLeft();
    m_picture.isWhole = wanted.contains(box);
    // One pixel where nothing is in sight, so that there is a picture.
    m_picture.image = QImage(area.size().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    m_picture.image.setDevicePixelRatio(ratio);
    m_picture.image.fill(Qt::transparent);
    QPainter painter(&m_picture.image);
    painter.setClipRect(
        QRect(QPoint(), area.size())); // hairlines then go straight into the picture
    painter.setRenderHints(hints);
    paintItems(painter,
               sceneToDevice * QTransform::fromTranslate(-area.x(), -area.y()) *
                   QTransform::fromScale(1.0 / ratio, 1.0 / ratio),
               view);
}

QRectF ZTCarriedItems::boxPx() const
{
    QRectF boxPx;
    for (const auto &item : m_items) {
        if (item)
            boxPx |= item->mapRectToScene(item->boundingRect());
    }
    return boxPx;
}

void ZTCarriedItems::paintItems(QPainter &painter, const QTransform &sceneToPainter,
                                QWidget *view) const
{
    QStyleOptionGraphicsItem option;
    for (const auto &item : m_items) {
        if (!item || item->scene() != m_scene || !item->isVisible())
            continue;
        option.exposedRect = item->boundingRect();
        option.rect = option.exposedRect.toAlignedRect();
        painter.save();
        painter.setWorldTransform(item->sceneTransform() * sceneToPainter);
        item->paint(&painter, &option, view);
        painter.restore();
    }
}
