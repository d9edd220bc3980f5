#include <ZTDrawEngineLib/items/ZTGraphicsScene.h>

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>
#include <ZTDrawEngineLib/items/ZTSceneIndex_p.h>
#include <ZTDrawEngineLib/items/commands/ZTItemPosCommand.h>
#include <ZTDrawEngineLib/items/commands/ZTUndoStep_p.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <QtWidgets/QGraphicsSceneContextMenuEvent>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QMenu>

#include <algorithm>

namespace {

const QRectF kSceneRectPx(-32768, -32768, 65536, 65536);
const QRectF kFirstFrameRectPx(0, 0, 150, 150);

struct AlignmentChoice
{
    const char *label;
    Qt::AlignmentFlag flag;
};

constexpr AlignmentChoice kAlignmentChoices[] = {
    {QT_TRANSLATE_NOOP("ZTGraphicsScene", "Left"), Qt::AlignLeft},
    {QT_TRANSLATE_NOOP("ZTGraphicsScene", "Right"), Qt::AlignRight},
    {QT_TRANSLATE_NOOP("ZTGraphicsScene", "Horizontally Center"), Qt::AlignHCenter},
    {QT_TRANSLATE_NOOP("ZTGraphicsScene", "Top"), Qt::AlignTop},
    {QT_TRANSLATE_NOOP("ZTGraphicsScene", "Bottom"), Qt::AlignBottom},
    {QT_TRANSLATE_NOOP("ZTGraphicsScene", "Vertically Center"), Qt::AlignVCenter},
    {QT_TRANSLATE_NOOP("ZTGraphicsScene", "Center"), Qt::AlignCenter},
};

/** Where the selection frame stood before the first item moved. */
struct Reference
{
    QRectF rectPx;
    QPointF posPx;
};

QPointF alignedPos(QFlags<Qt::AlignmentFlag> alignment, const Reference &frame, const QRectF &boxPx,
                   const QPointF &posPx)
{
    const double centerX = frame.posPx.x() + frame.rectPx.center().x() - boxPx.center().x();
    const double centerY = frame.posPx.y() + frame.rectPx.center().y() - boxPx.center().y();
    switch (static_cast<int>(alignment)) {
    case Qt::AlignLeft:
        return {frame.posPx.x(), posPx.y()};
    case Qt::AlignRight:
        return {frame.posPx.x() + frame.rectPx.width() - boxPx.width(), posPx.y()};
    case Qt::AlignHCenter:
        return {centerX, posPx.y()};
    case Qt::AlignTop:
        return {posPx.x(), frame.posPx.y()};
    case Qt::AlignBottom:
        return {posPx.x(), frame.posPx.y() + frame.rectPx.height() - boxPx.height()};
    case Qt::AlignVCenter:
        return {posPx.x(), centerY};
    case Qt::AlignCenter:
        return {centerX, centerY};
    default:
        // Kept: without a choice the items go to the scene's origin; one undo step takes it back.
        return {};
    }
}

/** So many items are deleted one by one; Qt searches its lists for each, from the front. */
constexpr int kFewItems = 256;

using Guarded = QVector<QPointer<ZTAbstractGraphicsItem>>;

/** Of one height, those given lowest first stand in the order in which Qt has them. */
bool areAllOfOneHeight(const Guarded &items)
{
    return std::all_of(items.begin(), items.end(), [&](const auto &item) {
        return !item || !items.first() || item->zValue() == items.first()->zValue();
    });
}

QList<QPointer<ZTAbstractGraphicsItem>> selectedOf(const Guarded &items)
{
    QList<QPointer<ZTAbstractGraphicsItem>> selected;
    for (const auto &item : items) {
        if (item && item->isSelected())
            selected.append(item);
    }
    return selected;
}

/** Those of `items` that are in `listed`, in its order. */
Guarded inOrderOf(const QList<QGraphicsItem *> &listed, const Guarded &items)
{
    QSet<const QGraphicsItem *> wanted;
    wanted.reserve(items.size());
    for (const auto &item : items) {
        if (item)
            wanted.insert(item.data());
    }
    Guarded ordered;
    ordered.reserve(wanted.size());
    for (QGraphicsItem *candidate : listed) {
        if (wanted.contains(candidate))
            ordered.append(static_cast<ZTAbstractGraphicsItem *>(candidate));
    }
    return ordered;
}

/**
 * Brings items to the front of all lists in which Qt searches for those that go, in their order.
 *
 * What a flag says to stand behind is sorted to the front; without a parent it means nothing else.
 * Qt sorts its list when it is asked for what lies somewhere and has no index.
 */
void gatherInFront(QGraphicsScene &scene, const Guarded &items)
{
    for (const auto &item : items) {
        if (item)
            item->setFlag(QGraphicsItem::ItemStacksBehindParent);
    }
    {
        const ZTIndexPause pause(scene);
        scene.items(QPointF());
    }
    scene.items(QPointF()); // what waits to be indexed would be searched for, too
}

/** Keeps the views of a scene from painting at once what is about to go; they paint later. */
class PaintPause
{
public:
    explicit PaintPause(const QGraphicsScene &scene)
    {
        const QList<QGraphicsView *> views = scene.views();
        for (const QGraphicsView *view : views) {
            if (view->viewport()->updatesEnabled())
                m_paused.append(view->viewport());
        }
        enableUpdates(false);
    }

    ~PaintPause() { enableUpdates(true); }
    PaintPause(const PaintPause &) = delete;
    PaintPause &operator=(const PaintPause &) = delete;

private:
    void enableUpdates(bool isOn)
    {
        for (const auto &viewport : m_paused) {
            if (viewport)
                viewport->setUpdatesEnabled(isOn);
        }
    }

    QVector<QPointer<QWidget>> m_paused;
};

} // namespace

ZTGraphicsScene::ZTGraphicsScene(QObject *parent)
    : QGraphicsScene(parent), m_resizeItem(new ZTGraphicsResizeItem(kFirstFrameRectPx))
{
    setSceneRect(kSceneRectPx);
    m_resizeItem->setVisible(false);
    addItem(m_resizeItem);
    connect(this, &QGraphicsScene::selectionChanged, this, &ZTGraphicsScene::slotSelectionChanged);
}

ZTGraphicsScene::~ZTGraphicsScene()
{
    // Each selected item that goes would announce a selection, and all who listen would walk it.
    blockSignals(true);
    polishItems();
    delete m_resizeItem;
}

void ZTGraphicsScene::polishItems()
{
    // Qt queues new items for polishing, and searches the queue for each of them that goes. The
    // queue is worked off by a posted call to the scene itself.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void ZTGraphicsScene::setUndoStack(QUndoStack *stack)
{
    m_undoStack = stack;
    if (m_resizeItem)
        m_resizeItem->setUndoStack(stack);
}

QUndoStack *ZTGraphicsScene::getUndoStack() const { return m_undoStack; }

ZTGraphicsResizeItem *ZTGraphicsScene::getGraphicsResizeItem() const { return m_resizeItem; }

QRectF ZTGraphicsScene::getSelectionItemRect() const
{
    QRectF rectPx;
    for (const auto &item : selectedShapeItems())
        rectPx |= item->mapRectToScene(item->boundingRect());
    return rectPx;
}

ZTAbstractGraphicsItem *ZTGraphicsScene::getItemById(int id)
{
    const QList<QGraphicsItem *> all = items(Qt::DescendingOrder);
    for (QGraphicsItem *item : all) {
        auto *shapeItem = dynamic_cast<ZTAbstractGraphicsItem *>(item);
        const ZTShapeBase *shape = shapeItem != nullptr ? shapeItem->getShapeBase() : nullptr;
        if (shape != nullptr && shape->getId() == id)
            return shapeItem;
    }
    return nullptr;
}

QHash<int, QList<ZTAbstractGraphicsItem *>> ZTGraphicsScene::getItemsById() const
{
    QHash<int, QList<ZTAbstractGraphicsItem *>> byId;
    const QList<QGraphicsItem *> all = items(Qt::DescendingOrder);
    for (QGraphicsItem *item : all) {
        auto *shapeItem = dynamic_cast<ZTAbstractGraphicsItem *>(item);
        if (shapeItem != nullptr && shapeItem->getShapeBase() != nullptr)
            byId[shapeItem->getShapeBase()->getId()].append(shapeItem);
    }
    return byId;
}

void ZTGraphicsScene::deleteItems(const QList<ZTAbstractGraphicsItem *> &items)
{
    const Guarded guarded(items.begin(), items.end());
    const bool areFew = guarded.size() <= kFewItems;
    if (areFew) {
        polishItems();
    } else {
        // Said of all at once, it need not be said of each: neither of what waits to be updated,
        // nor of what is deselected and goes. What is posted takes the first one back.
        const PaintPause pause(*this);
        update();
        polishItems();
        update();
    }
    deselect(selectedOf(guarded));
    if (areFew) {
        for (const auto &item : guarded)
            delete item;
        return;
    }
    // Listed as long as they stand in their order: Qt takes five times as long for mixed ones.
    const QList<QGraphicsItem *> listed = this->items(Qt::AscendingOrder);
    const bool areNearlyAll = listed.size() - guarded.size() <= kFewItems;
    if (!areNearlyAll || !areAllOfOneHeight(guarded)) {
        const Guarded ordered = inOrderOf(listed, guarded);
        gatherInFront(*this, ordered);
        for (const auto &item : ordered)
            delete item;
    }
    // What stands in front anyway, or in another scene.
    for (const auto &item : guarded)
        delete item;
}

void ZTGraphicsScene::deselect(const QList<QPointer<ZTAbstractGraphicsItem>> &items)
{
    bool hasChanged = false;
    {
        const QSignalBlocker oneSignalForAll(this);
        for (const auto &item : items) {
            if (!item)
                continue;
            const bool wasSelectedHere = item->isSelected() && item->scene() == this;
            item->setSelected(false);
            hasChanged = hasChanged || (wasSelectedHere && !(item && item->isSelected()));
        }
    }
    if (hasChanged)
        Q_EMIT selectionChanged();
}

void ZTGraphicsScene::setMirror(int kind)
{
    if (!m_resizeItem || (kind != 1 && kind != 2))
        return;
    const Reference frame = {m_resizeItem->rect(), m_resizeItem->pos()};
    for (const auto &item : selectedShapeItems()) {
        if (!item)
            continue;
        const QPointF delta = item->pos() - frame.posPx;
        if (kind == 1) {
            item->scale(-1.0, 1.0);
            item->setPos(frame.posPx.x() + frame.rectPx.width() - delta.x(),
                         frame.posPx.y() + delta.y());
        } else {
            item->scale(1.0, -1.0);
            item->setPos(frame.posPx.x() + delta.x(),
                         frame.posPx.y() + frame.rectPx.height() - delta.y());
        }
    }
}

void ZTGraphicsScene::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    const QPointer<ZTGraphicsScene> self(this);
    event->accept();
    // The menu takes the release of the press that opened it: the frame would wait for it for ever.
    if (m_resizeItem)
        m_resizeItem->endDrag();
    const QFlags<Qt::AlignmentFlag> alignment = displayMenu(event->screenPos());
    // The menu ran an event loop, in which the document may have been closed.
    if (self && m_resizeItem && selectedItems().size() >= 2)
        align(alignment);
}

void ZTGraphicsScene::align(QFlags<Qt::AlignmentFlag> alignment)
{
    const Reference frame = {m_resizeItem->rect(), m_resizeItem->pos()};
    ZTUndoStep step(m_undoStack, QStringLiteral("item setPos"));
    for (const auto &item : selectedShapeItems()) {
        if (!item)
            continue;
        const QPointF newPos = alignedPos(alignment, frame, item->boundingRect(), item->pos());
        step.push(std::make_unique<ZTItemPosCommand>(item, item->pos(), newPos));
    }
}

QFlags<Qt::AlignmentFlag> ZTGraphicsScene::displayMenu(QPoint screenPos)
{
    QFlags<Qt::AlignmentFlag> chosen;
    QMenu menu;
    for (const AlignmentChoice &choice : kAlignmentChoices) {
        const QAction *action = menu.addAction(tr(choice.label));
        // The menu, and with it the connection, goes before `chosen` does.
        connect(action, &QAction::triggered, &menu,
                [&chosen, choice] { chosen = choice.flag; }); // clazy:exclude=lambda-in-connect
    }
    if (selectedItems().size() < 2)
        menu.setEnabled(false);
    menu.exec(screenPos);
    return chosen;
}

QList<QPointer<ZTAbstractGraphicsItem>> ZTGraphicsScene::selectedShapeItems() const
{
    QList<QPointer<ZTAbstractGraphicsItem>> shapeItems;
    const QList<QGraphicsItem *> selected = selectedItems();
    for (QGraphicsItem *item : selected) {
        if (auto *shapeItem = dynamic_cast<ZTAbstractGraphicsItem *>(item))
            shapeItems.append(shapeItem);
    }
    return shapeItems;
}

void ZTGraphicsScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsScene::mousePressEvent(event);
}

void ZTGraphicsScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsScene::mouseMoveEvent(event);
}

void ZTGraphicsScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsScene::mouseReleaseEvent(event);
}

void ZTGraphicsScene::slotSelectionChanged()
{
    if (m_resizeItem)
        m_resizeItem->setSelectItem(selectedItems());
}
