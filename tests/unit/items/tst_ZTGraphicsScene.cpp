#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsItemGroup>
#include <QtWidgets/QGraphicsView>

#include <memory>

namespace {

ZTGraphicsRectItem *addRect(QGraphicsScene &scene, int id, const QPointF &posPx)
{
    auto *item = new ZTGraphicsRectItem;
    item->getShapeBase()->setId(id);
    item->setPos(posPx);
    scene.addItem(item);
    return item;
}

QGraphicsRectItem *addForeign(QGraphicsScene &scene)
{
    QGraphicsRectItem *item = scene.addRect(-500, -500, 50, 50);
    item->setFlag(QGraphicsItem::ItemIsSelectable);
    return item;
}

/** Counts how often it is painted. */
class CountingView : public QGraphicsView
{
public:
    explicit CountingView(QGraphicsScene *shown) : QGraphicsView(shown)
    {
        resize(300, 300);
        show();
        QCoreApplication::processEvents();
        paintCount = 0;
    }

    int paintCount = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paintCount;
        QGraphicsView::paintEvent(event);
    }
};

void selectEverything(QGraphicsScene &scene)
{
    QPainterPath everywhere;
    everywhere.addRect(scene.sceneRect());
    scene.setSelectionArea(everywhere);
}

} // namespace

class tst_ZTGraphicsScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newScene_holdsAHiddenFrame()
    {
        QObject parent;
        const auto *scene = new ZTGraphicsScene(&parent);
        QCOMPARE(scene->parent(), &parent);
        QCOMPARE(scene->sceneRect(), QRectF(-32768, -32768, 65536, 65536));
        QCOMPARE(scene->getUndoStack(), nullptr);
        const ZTGraphicsResizeItem *frame = scene->getGraphicsResizeItem();
        QVERIFY(frame != nullptr);
        QVERIFY(!frame->isVisible());
        QCOMPARE(frame->rect(), QRectF(0, 0, 150, 150));
        QCOMPARE(frame->parentItem(), nullptr);
        QCOMPARE(frame->scene(), scene);
    }

    void setUndoStack_reachesTheFrame()
    {
        ZTGraphicsScene scene;
        QUndoStack stack;
        scene.setUndoStack(&stack);
        QCOMPARE(scene.getUndoStack(), &stack);
        QCOMPARE(scene.getGraphicsResizeItem()->getUndoStack(), &stack);
        scene.setUndoStack(nullptr);
        QCOMPARE(scene.getGraphicsResizeItem()->getUndoStack(), nullptr);
    }

    void selection_putsTheFrameOverIt()
    {
        ZTGraphicsScene scene;
        auto *a = addRect(scene, 0, QPointF(10, 20));
        auto *b = addRect(scene, 1, QPointF(200, 300));
        ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem();
        a->setSelected(true);
        QVERIFY(frame->isVisible());
        QCOMPARE(frame->rect().translated(frame->pos()), QRectF(10, 20, 100, 100));
        b->setSelected(true);
        QCOMPARE(frame->rect().translated(frame->pos()), QRectF(10, 20, 290, 380));
        scene.clearSelection();
        QVERIFY(!frame->isVisible());
        QVERIFY(frame->selectItem().isEmpty());
    }

    void selection_ofVeryMany_listsTheFrameBehindThem()
    {
        constexpr int kCount = 5000;
        ZTGraphicsScene scene;
        scene.setBspTreeDepth(5);
        QList<QGraphicsItem *> expected;
        for (int i = 0; i < kCount; ++i)
            expected << addRect(scene, i, QPointF(3 * i, i % 7));
        QVERIFY(!scene.items(QPointF(1, 1)).isEmpty()); // each has its place in the index
        ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem();
        const QGraphicsItem::GraphicsItemFlags flags = frame->flags();
        expected << frame << frame->childItems();

        selectEverything(scene);
        QCOMPARE(scene.items(QPointF(1, 1)).first(), static_cast<QGraphicsItem *>(frame));
        QCOMPARE(frame->flags(), flags);
        QCOMPARE(scene.bspTreeDepth(), 5);
        QCOMPARE(scene.items(Qt::AscendingOrder), expected);
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        QCOMPARE(scene.items(), expected); // without an index Qt sorts nothing
    }

    void selection_ofVeryMany_withoutAnIndex_staysSo()
    {
        ZTGraphicsScene scene;
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        for (int i = 0; i < 5000; ++i)
            addRect(scene, i, QPointF(3 * i, i % 7));
        selectEverything(scene);
        QCOMPARE(scene.itemIndexMethod(), QGraphicsScene::NoIndex);
        QCOMPARE(scene.getGraphicsResizeItem()->selectItem().size(), 5000);
    }

    void getSelectionItemRect_unitesShapeItems()
    {
        ZTGraphicsScene scene;
        QVERIFY(scene.getSelectionItemRect().isNull());
        auto *a = addRect(scene, 0, QPointF(10, 20));
        auto *b = addRect(scene, 1, QPointF(200, 300));
        auto *foreign = addForeign(scene);
        foreign->setSelected(true);
        QVERIFY(scene.getSelectionItemRect().isNull());
        a->setSelected(true);
        b->setSelected(true);
        QCOMPARE(scene.getSelectionItemRect(), QRectF(10, 20, 290, 380));
    }

    void getItemById_theTopmostWins()
    {
        ZTGraphicsScene scene;
        QCOMPARE(scene.getItemById(0), nullptr);
        addForeign(scene);
        auto *low = addRect(scene, 7, QPointF(0, 0));
        auto *high = addRect(scene, 7, QPointF(0, 0));
        auto *other = addRect(scene, 8, QPointF(0, 0));
        QCOMPARE(scene.getItemById(7), high);
        QCOMPARE(scene.getItemById(8), other);
        QCOMPARE(scene.getItemById(9), nullptr);
        low->setZValue(1);
        QCOMPARE(scene.getItemById(7), low);
    }

    void getItemsById_agreesWithGetItemById()
    {
        ZTGraphicsScene scene;
        addForeign(scene);
        auto *low = addRect(scene, 7, QPointF(0, 0));
        auto *high = addRect(scene, 7, QPointF(0, 0));
        auto *other = addRect(scene, -1, QPointF(0, 0));
        const auto byId = scene.getItemsById();
        QCOMPARE(byId.size(), 2);
        QCOMPARE(byId.value(7), QList<ZTAbstractGraphicsItem *>({high, low}));
        QCOMPARE(byId.value(-1), QList<ZTAbstractGraphicsItem *>({other}));
    }

    void setMirror_leftToRight_swapsSides_andRecordsNothing()
    {
        ZTGraphicsScene scene;
        QUndoStack stack;
        scene.setUndoStack(&stack);
        auto *a = addRect(scene, 0, QPointF(0, 0));
        auto *b = addRect(scene, 1, QPointF(200, 50));
        a->setSelected(true);
        b->setSelected(true);
        addForeign(scene)->setSelected(true);
        scene.setMirror(1);
        // The frame was 300 wide. Items are mirrored about their origin, so they reach leftwards.
        QCOMPARE(a->pos(), QPointF(300, 0));
        QCOMPARE(b->pos(), QPointF(100, 50));
        QCOMPARE(a->mapRectToScene(a->boundingRect()), QRectF(200, 0, 100, 100));
        QCOMPARE(b->mapRectToScene(b->boundingRect()), QRectF(0, 50, 100, 100));
        QCOMPARE(a->getTransformParam(), QTransform::fromScale(-1, 1));
        QCOMPARE(stack.count(), 0);
    }

    void setMirror_topToBottom_swapsSides()
    {
        ZTGraphicsScene scene;
        auto *a = addRect(scene, 0, QPointF(10, 20));
        auto *b = addRect(scene, 1, QPointF(50, 220));
        a->setSelected(true);
        b->setSelected(true);
        scene.setMirror(2);
        QCOMPARE(a->pos(), QPointF(10, 320));
        QCOMPARE(b->pos(), QPointF(50, 120));
        QCOMPARE(a->getTransformParam(), QTransform::fromScale(1, -1));
    }

    void setMirror_otherKinds_doNothing_data()
    {
        QTest::addColumn<int>("kind");
        for (const int kind : {0, 3, -1, 1000})
            QTest::addRow("%d", kind) << kind;
    }
    void setMirror_otherKinds_doNothing()
    {
        QFETCH(int, kind);
        ZTGraphicsScene scene;
        auto *a = addRect(scene, 0, QPointF(10, 20));
        a->setSelected(true);
        scene.setMirror(kind);
        QCOMPARE(a->pos(), QPointF(10, 20));
        QVERIFY(a->getTransformParam().isIdentity());
    }

    void deletingASelectedItem_isSeenWhileItIsWhole()
    {
        ZTGraphicsScene scene;
        auto *a = addRect(scene, 0, QPointF(0, 0));
        auto *b = addRect(scene, 1, QPointF(200, 0));
        a->setSelected(true);
        b->setSelected(true);
        int seen = 0;
        connect(&scene, &QGraphicsScene::selectionChanged, &scene, [&] {
            ++seen;
            // All that still is in the scene can be asked anything.
            const QList<QGraphicsItem *> items = scene.items();
            for (QGraphicsItem *item : items)
                QVERIFY(!item->boundingRect().isEmpty());
        });
        delete a;
        QCOMPARE(seen, 1);
        ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem();
        QCOMPARE(frame->selectItem(), QList<QGraphicsItem *>({b}));
        QCOMPARE(frame->rect().translated(frame->pos()), QRectF(200, 0, 100, 100));
        delete b;
        QVERIFY(!frame->isVisible());
    }

    void deletingADroppedOrBlockedItem_isHarmless()
    {
        ZTGraphicsScene scene;
        auto *a = addRect(scene, 0, QPointF(0, 0));
        auto *b = addRect(scene, 1, QPointF(200, 0));
        a->setSelected(true);
        b->setSelected(true);
        a->setSelected(false);
        delete a;
        scene.blockSignals(true);
        delete b;
        scene.blockSignals(false);
        ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem();
        QVERIFY(frame->selectItem().isEmpty());
        frame->setPos(QPointF(1, 1));
        frame->setSelectItem({});
    }

    void deletingAGroup_takesItsChildrenAlong()
    {
        ZTGraphicsScene scene;
        auto *a = addRect(scene, 0, QPointF(0, 0));
        auto *b = addRect(scene, 1, QPointF(200, 0));
        QGraphicsItemGroup *group = scene.createItemGroup({a, b});
        group->setFlag(QGraphicsItem::ItemIsSelectable);
        group->setSelected(true);
        delete group;
        QVERIFY(scene.getGraphicsResizeItem()->selectItem().isEmpty());
    }

    void removedItem_canBeUsedAndPutBack()
    {
        ZTGraphicsScene scene;
        auto *a = addRect(scene, 0, QPointF(0, 0));
        auto *b = addRect(scene, 1, QPointF(200, 0));
        a->setSelected(true);
        b->setSelected(true);
        scene.removeItem(a);
        a->setPos(-50, -50);
        ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem();
        QCOMPARE(frame->rect().translated(frame->pos()), QRectF(200, 0, 100, 100));
        scene.addItem(a);
        scene.removeItem(a);
        delete a;
        QCOMPARE(frame->selectItem().size(), 1);
    }

    void clear_takesTheFrame_andTheSceneLivesOn()
    {
        ZTGraphicsScene scene;
        addRect(scene, 0, QPointF(0, 0))->setSelected(true);
        addRect(scene, 1, QPointF(0, 0))->setSelected(true);
        scene.clear();
        QCOMPARE(scene.getGraphicsResizeItem(), nullptr);
        addRect(scene, 0, QPointF(0, 0))->setSelected(true);
        scene.setMirror(1);
        scene.setUndoStack(nullptr);
    }

    void destroyingTheScene_withSelectionAndCommands_isHarmless()
    {
        QUndoStack stack;
        auto scene = std::make_unique<ZTGraphicsScene>();
        scene->setUndoStack(&stack);
        for (int i = 0; i < 100; ++i)
            addRect(*scene, i, QPointF(10 * i, 0));
        addForeign(*scene);
        selectEverything(*scene);
        scene->getGraphicsResizeItem()->setPos(QPointF(-20, 5));
        stack.beginMacro(QStringLiteral("left open"));
        scene->getGraphicsResizeItem()->setPos(QPointF(20, 5));
        scene.reset();
        stack.endMacro();
        stack.undo();
        stack.undo();
        stack.redo();
    }

    void destroyingTheScene_announcesNoSelection()
    {
        auto scene = std::make_unique<ZTGraphicsScene>();
        addRect(*scene, 0, QPointF(0, 0))->setSelected(true);
        const QSignalSpy selections(scene.get(), &QGraphicsScene::selectionChanged);
        const QSignalSpy goodbyes(scene.get(), &QObject::destroyed);
        scene.reset();
        QCOMPARE(selections.count(), 0);
        QCOMPARE(goodbyes.count(), 1);
    }

    void deleteItems_announcesOneSelection()
    {
        ZTGraphicsScene scene;
        QList<ZTAbstractGraphicsItem *> doomed;
        for (int i = 0; i < 10; ++i)
            doomed << addRect(scene, i, QPointF(10 * i, 0));
        auto *kept = addRect(scene, 10, QPointF(500, 0));
        auto *foreign = addForeign(scene);
        selectEverything(scene);
        doomed << nullptr;
        const QSignalSpy selections(&scene, &QGraphicsScene::selectionChanged);
        scene.deleteItems(doomed);
        QCOMPARE(selections.count(), 1);
        QCOMPARE(scene.selectedItems().size(), 2);
        QVERIFY(kept->isSelected());
        QVERIFY(foreign->isSelected());
        QCOMPARE(scene.getGraphicsResizeItem()->selectItem().size(), 2);
        QCOMPARE(scene.getItemsById().size(), 1);
        QCOMPARE(scene.items(QPointF(50, 50)).size(), 0);
        scene.deleteItems({});
        QCOMPARE(selections.count(), 1);
    }

    void deleteItems_ofAnotherScene_announceNoSelectionHere()
    {
        ZTGraphicsScene scene;
        ZTGraphicsScene other;
        addRect(scene, 1, QPointF())->setSelected(true);
        ZTAbstractGraphicsItem *elsewhere = addRect(other, 2, QPointF());
        elsewhere->setSelected(true);
        const QSignalSpy here(&scene, &QGraphicsScene::selectionChanged);
        const QSignalSpy there(&other, &QGraphicsScene::selectionChanged);
        scene.deleteItems({elsewhere});
        QCOMPARE(here.count(), 0);
        QCOMPARE(there.count(), 1);
        QCOMPARE(scene.selectedItems().size(), 1);
    }

    void deleteItems_many_areNotPaintedOnceMore()
    {
        ZTGraphicsScene scene;
        QList<ZTAbstractGraphicsItem *> doomed;
        for (int i = 0; i < 400; ++i)
            doomed << addRect(scene, i, QPointF(i % 20 * 10.0, i / 20 * 10.0));
        addRect(scene, 400, {0, 0});
        CountingView view(&scene);
        selectEverything(scene);
        scene.deleteItems(doomed);
        QCOMPARE(view.paintCount, 0);
        QVERIFY(view.viewport()->updatesEnabled());
        QTRY_COMPARE(view.paintCount, 1);
    }

    void deleteItems_many_leavesAViewPausedThatWasSo()
    {
        ZTGraphicsScene scene;
        QList<ZTAbstractGraphicsItem *> doomed;
        for (int i = 0; i < 400; ++i)
            doomed << addRect(scene, i, QPointF(i % 20 * 10.0, i / 20 * 10.0));
        CountingView view(&scene);
        view.viewport()->setUpdatesEnabled(false);
        scene.deleteItems(doomed);
        QVERIFY(!view.viewport()->updatesEnabled());
    }

    void deleteItems_survivesAListenerThatDeletes()
    {
        ZTGraphicsScene scene;
        QPointer<ZTAbstractGraphicsItem> a = addRect(scene, 0, QPointF(0, 0));
        QPointer<ZTAbstractGraphicsItem> b = addRect(scene, 1, QPointF(0, 0));
        a->setSelected(true);
        connect(&scene, &QGraphicsScene::selectionChanged, &scene, [&] { delete b; });
        scene.deleteItems({a, b});
        QVERIFY(a.isNull());
        QVERIFY(b.isNull());
    }

    void deleteItems_many_leavesTheOthersAsTheyAre_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("heights");
        QTest::addColumn<bool>("hasIndex");
        QTest::newRow("every second") << 2 << 1 << true;
        QTest::newRow("every second, of three heights") << 2 << 3 << true;
        QTest::newRow("every second, without an index") << 2 << 3 << false;
        QTest::newRow("all") << 1 << 1 << true;
        QTest::newRow("all, of three heights") << 1 << 3 << true;
    }
    void deleteItems_many_leavesTheOthersAsTheyAre()
    {
        QFETCH(int, step);
        QFETCH(int, heights);
        QFETCH(bool, hasIndex);
        ZTGraphicsScene scene;
        scene.setBspTreeDepth(5);
        if (!hasIndex)
            scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        QVector<QPointer<ZTAbstractGraphicsItem>> all;
        for (int i = 0; i < 2000; ++i) {
            all << addRect(scene, i, QPointF(3 * i, i % 7));
            all.last()->setZValue(i % heights);
        }
        QList<ZTAbstractGraphicsItem *> doomed;
        for (int i = 0; i < all.size(); i += step)
            doomed << all[i];
        selectEverything(scene); // brings the frame to the top
        QList<QGraphicsItem *> expected = scene.items(Qt::AscendingOrder);
        for (ZTAbstractGraphicsItem *item : doomed)
            expected.removeOne(item);
        const QSignalSpy selections(&scene, &QGraphicsScene::selectionChanged);

        scene.deleteItems(doomed);
        QCOMPARE(selections.count(), 1);
        QCOMPARE(scene.items().size(), expected.size());
        if (hasIndex) // else Qt gives them in any order
            QCOMPARE(scene.items(Qt::AscendingOrder), expected);
        for (int i = 0; i < all.size(); ++i) {
            QCOMPARE(all[i].isNull(), i % step == 0);
            if (all[i])
                QVERIFY(!all[i]->flags().testFlag(QGraphicsItem::ItemStacksBehindParent));
        }
        QCOMPARE(scene.itemIndexMethod(),
                 hasIndex ? QGraphicsScene::BspTreeIndex : QGraphicsScene::NoIndex);
        if (hasIndex)
            QCOMPARE(scene.bspTreeDepth(), 5);
        QCOMPARE(scene.items(QPointF(3050, 3)).isEmpty(), step == 1);
    }

    void deleteItems_many_ofAnotherScene_goAsWell()
    {
        ZTGraphicsScene scene;
        ZTGraphicsScene other;
        QList<ZTAbstractGraphicsItem *> doomed;
        for (int i = 0; i < 600; ++i)
            doomed << addRect(i % 3 == 0 ? other : scene, i, QPointF(i, 0));
        for (int i = 0; i < 600; ++i)
            addRect(scene, 1000 + i, QPointF(i, 0));
        scene.deleteItems(doomed);
        QCOMPARE(scene.getItemsById().size(), 600);
        QCOMPARE(other.getItemsById().size(), 0);
    }

    void manyItems_followOneDragAndUndo()
    {
        ZTGraphicsScene scene;
        QUndoStack stack;
        scene.setUndoStack(&stack);
        for (int i = 0; i < 3000; ++i)
            addRect(scene, i, QPointF(3 * i, i % 7));
        selectEverything(scene);
        ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem();
        const QRectF before = frame->rect().translated(frame->pos());
        QCOMPARE(before, QRectF(0, 0, 9097, 106));
        frame->setPos(QPointF(100, 50));
        stack.undo();
        QCOMPARE(frame->rect().translated(frame->pos()), before);
        stack.redo();
        QCOMPARE(frame->rect().translated(frame->pos()), before.translated(100, 50));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTGraphicsScene)
#include "tst_ZTGraphicsScene.moc"
