#include <support/SceneDriver.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QUndoStack>

#include <memory>

namespace {

/** A view of 800 by 600 pixels on a scene, one pixel each, with a user before it. */
class Desk
{
public:
    Desk()
    {
        scene->setUndoStack(&stack);
        view.setFrameShape(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setDragMode(QGraphicsView::RubberBandDrag);
        view.setTransformationAnchor(QGraphicsView::AnchorViewCenter);
        view.setSceneRect(-400, -300, 800, 600);
        view.resize(800, 600);
        view.setScene(scene.get());
        user = std::make_unique<testsupport::SceneDriver>(view);
    }

    /** A square of 100 pixels. */
    ZTGraphicsRectItem *addRect(double x, double y)
    {
        auto *item = new ZTGraphicsRectItem;
        item->getShapeBase()->setId(nextId++);
        item->setPos(x, y);
        scene->addItem(item);
        return item;
    }

    ZTGraphicsResizeItem &frame() const { return *scene->getGraphicsResizeItem(); }

    QRectF frameRect() const { return frame().rect().translated(frame().pos()); }

    /** Place of a handle on the screen. */
    QRectF handlePlace(int index) const
    {
        return frame()
            .childItems()
            .at(index)
            ->deviceTransform(view.viewportTransform())
            .mapRect(QRectF(0, 0, 20, 20));
    }

    /** Middle of a handle as seen on screen, in scene pixels. */
    QPointF handle(int index) const
    {
        const QGraphicsItem *item = frame().childItems().at(index);
        const QPointF onScreen =
            item->deviceTransform(view.viewportTransform()).map(QPointF(10, 10));
        return view.viewportTransform().inverted().map(onScreen);
    }

    QUndoStack stack;
    std::unique_ptr<ZTGraphicsScene> scene = std::make_unique<ZTGraphicsScene>();
    QGraphicsView view;
    std::unique_ptr<testsupport::SceneDriver> user;
    int nextId = 0;
};

QRectF sceneRectOf(const ZTAbstractGraphicsItem *item)
{
    return item->mapRectToScene(item->boundingRect());
}

} // namespace

class tst_gui_ZTGraphicsResizeItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
        desk = std::make_unique<Desk>();
    }
    void cleanup()
    {
        desk.reset();
        guard.reset();
    }

    void click_onAnItem_selectsIt_onEmptyCanvasDeselects()
    {
        auto *a = desk->addRect(0, 0);
        desk->user->click({50, 50});
        QVERIFY(a->isSelected());
        QVERIFY(desk->frame().isVisible());
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 100, 100));
        desk->user->click({-200, -200});
        QVERIFY(!a->isSelected());
        QVERIFY(!desk->frame().isVisible());
    }

    void handleScale_makesCornersStandApartOfAFlatFrame()
    {
        auto *flat = desk->addRect(0, 0);
        flat->setTransformParam(QTransform::fromScale(1.0, 0.04)); // 100 by 4 pixels
        flat->setSelected(true);
        QCOMPARE(desk->frame().getHandleScale(), 0.0);
        QCOMPARE(desk->handlePlace(0).bottom(), desk->handlePlace(4).bottom()); // as ever
        QVERIFY(desk->handlePlace(0).intersects(desk->handlePlace(5)));
        const QRectF middle = desk->handlePlace(5);
        desk->frame().setHandleScale(1.0);
        QCOMPARE(desk->handlePlace(5), middle);
        // Top left and bottom left go 8 pixels out each: the one between them has 20.
        QCOMPARE(desk->handlePlace(0).bottom(), middle.top());
        QCOMPARE(desk->handlePlace(2).top(), middle.bottom() + 1.0);
        QCOMPARE(desk->handlePlace(0).right(), middle.right()); // there is room enough across
        desk->frame().setHandleScale(10.0);                     // 1000 by 40 on the screen
        QCOMPARE(desk->handlePlace(0).bottom(), desk->handlePlace(4).bottom());
        desk->frame().setHandleScale(0.0);
        QCOMPARE(desk->handlePlace(0).bottom(), desk->handlePlace(4).bottom());
    }

    void box_holdsWhatIsPaintedOutsideOfTheRectangle()
    {
        desk->addRect(0, 0)->setSelected(true); // 100 by 100 pixels
        const QRectF box = desk->frame().boundingRect();
        const QRectF met = desk->frame().shape().boundingRect(); // by the mouse
        QVERIFY(box.contains(QRectF(0, 0, 100, 100)));
        desk->frame().setOutset(6.0);
        QCOMPARE(desk->frame().boundingRect(), box.adjusted(-6, -6, 6, 6));
        desk->frame().setHandleScale(2.0); // 6 pixels on the screen are 3 of the scene
        QCOMPARE(desk->frame().boundingRect(), box.adjusted(-3, -3, 3, 3));
        QCOMPARE(desk->frame().shape().boundingRect(), met);
        desk->frame().setOutset(0.0);
        QCOMPARE(desk->frame().boundingRect(), box);
    }

    void rubberBand_selectsWhatItTouches()
    {
        auto *a = desk->addRect(0, 0);
        auto *b = desk->addRect(150, 0);
        desk->user->drag({-50, -50}, {200, 120});
        QVERIFY(a->isSelected());
        QVERIFY(b->isSelected());
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 250, 100));
        QCOMPARE(a->pos(), QPointF(0, 0));
    }

    void draggingAnUnselectedItem_doesNotMoveIt()
    {
        auto *a = desk->addRect(0, 0);
        desk->user->drag({50, 50}, {120, 90});
        QCOMPARE(a->pos(), QPointF(0, 0));
        QVERIFY(a->isSelected());
        QCOMPARE(desk->stack.count(), 0);
    }

    void clickOnTheFrame_recordsNothing()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        desk->user->click({50, 50});
        QCOMPARE(desk->stack.count(), 0);
        QVERIFY(desk->frame().isEnableResizeFromChild());
        QVERIFY(a->isSelected());
        QVERIFY(desk->frame().isVisible());
    }

    void dragOfTwoItems_isOneStep()
    {
        auto *a = desk->addRect(0, 0);
        auto *b = desk->addRect(150, 20);
        a->setSelected(true);
        b->setSelected(true);
        desk->user->drag({50, 50}, {-50, 80});
        QCOMPARE(a->pos(), QPointF(-100, 30));
        QCOMPARE(b->pos(), QPointF(50, 50));
        QCOMPARE(desk->frameRect(), QRectF(-100, 30, 250, 120));
        QCOMPARE(desk->stack.count(), 1);
        QCOMPARE(desk->stack.text(0), QStringLiteral("release item setPos"));
        QCOMPARE(desk->stack.command(0)->childCount(), 2);
        desk->stack.undo();
        QCOMPARE(a->pos(), QPointF(0, 0));
        QCOMPARE(b->pos(), QPointF(150, 20));
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 250, 120));
        desk->stack.redo();
        QCOMPARE(b->pos(), QPointF(50, 50));
        QCOMPARE(desk->frameRect(), QRectF(-100, 30, 250, 120));
    }

    void itemsFollowLive_withoutCommands()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        const QSignalSpy positions(&desk->frame(), &ZTGraphicsResizeItem::sigPosChanged);
        desk->user->press({50, 50});
        QVERIFY(!desk->frame().isEnableResizeFromChild());
        desk->user->move({60, 50});
        QCOMPARE(a->pos(), QPointF(10, 0));
        desk->user->move({60, 50});
        desk->user->move({80, 55});
        QCOMPARE(a->pos(), QPointF(30, 5));
        QCOMPARE(desk->stack.count(), 0);
        QCOMPARE(positions.count(), 2);
        desk->user->release({80, 55});
        QCOMPARE(desk->stack.count(), 1);
        QVERIFY(desk->frame().isEnableResizeFromChild());
    }

    void dragBackToTheStart_recordsNothing()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        desk->user->press({50, 50});
        desk->user->move({90, 10});
        desk->user->move({50, 50});
        desk->user->release({50, 50});
        QCOMPARE(a->pos(), QPointF(0, 0));
        QCOMPARE(desk->stack.count(), 0);
    }

    void dragPastTheScene_stopsItemsAtTheEdge()
    {
        desk->scene->setSceneRect(-400, -300, 800, 600);
        auto *a = desk->addRect(-380, 0);
        auto *b = desk->addRect(-100, 0);
        a->setSelected(true);
        b->setSelected(true);
        desk->user->drag({-330, 50}, {-380, 50});
        QCOMPARE(a->pos(), QPointF(-400, 0));
        QCOMPARE(b->pos(), QPointF(-150, 0));
        desk->stack.undo();
        QCOMPARE(a->pos(), QPointF(-380, 0));
        QCOMPARE(b->pos(), QPointF(-100, 0));
    }

    void rightButton_onTheFrame_movesNothing()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        desk->view.setContextMenuPolicy(Qt::PreventContextMenu);
        desk->user->press({50, 50}, Qt::RightButton);
        desk->user->move({80, 50});
        desk->user->release({80, 50}, Qt::RightButton);
        QCOMPARE(a->pos(), QPointF(0, 0));
        QCOMPARE(desk->stack.count(), 0);
        QVERIFY(desk->frame().isEnableResizeFromChild());
    }

    void secondButton_duringADrag_keepsItOneStep()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        desk->view.setContextMenuPolicy(Qt::PreventContextMenu);
        desk->user->press({50, 50});
        desk->user->move({80, 50});
        desk->user->press({80, 50}, Qt::RightButton);
        desk->user->release({80, 50}, Qt::RightButton);
        desk->user->move({110, 50});
        desk->user->release({110, 50});
        // Qt measures the way from the last press of any button.
        QCOMPARE(a->pos(), QPointF(30, 0));
        QCOMPARE(desk->frame().pos(), a->pos());
        QCOMPARE(desk->stack.count(), 1);
        desk->stack.undo();
        QCOMPARE(a->pos(), QPointF(0, 0));
    }

    void doubleClick_onTheFrame_recordsNothing()
    {
        desk->addRect(0, 0)->setSelected(true);
        desk->user->doubleClick({50, 50});
        QCOMPARE(desk->stack.count(), 0);
        QVERIFY(desk->frame().isEnableResizeFromChild());
    }

    void handle_drag_resizesTheItem_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QRectF>("after");
        // Each handle goes by (-20, -40) from a square of 100 pixels at (0, 0).
        QTest::newRow("top left") << 0 << QRectF(-20, -40, 120, 140);
        QTest::newRow("top right") << 1 << QRectF(0, -40, 80, 140);
        QTest::newRow("bottom left") << 2 << QRectF(-20, 0, 120, 60);
        QTest::newRow("bottom right") << 3 << QRectF(0, 0, 80, 60);
        QTest::newRow("top") << 4 << QRectF(0, -40, 100, 140);
        QTest::newRow("left") << 5 << QRectF(-20, 0, 120, 100);
        QTest::newRow("right") << 6 << QRectF(0, 0, 80, 100);
        QTest::newRow("bottom") << 7 << QRectF(0, 0, 100, 60);
    }
    void handle_drag_resizesTheItem()
    {
        QFETCH(int, index);
        QFETCH(QRectF, after);
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        const QPointF from = desk->handle(index);
        desk->user->press(from);
        desk->user->move(from + QPointF(-20, -40));
        QCOMPARE(desk->frameRect(), after);
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 100, 100));
        desk->user->release(from + QPointF(-20, -40));
        QCOMPARE(sceneRectOf(a), after);
        QCOMPARE(desk->frameRect(), after);
        QCOMPARE(desk->frame().rect().topLeft(), QPointF(0, 0));
        QVERIFY(desk->frame().isEnableResizeFromChild());
        QCOMPARE(desk->stack.count(), 1);
        QCOMPARE(desk->stack.text(0), QStringLiteral("item resize"));
        desk->stack.undo();
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 100, 100));
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 100, 100));
        desk->stack.redo();
        QCOMPARE(sceneRectOf(a), after);
    }

    void handle_dragOfAGroup_keepsProportions()
    {
        auto *a = desk->addRect(-200, 0);
        auto *b = desk->addRect(100, 50);
        a->setSelected(true);
        b->setSelected(true);
        const QPointF from = desk->handle(5);
        desk->user->drag(from, from + QPointF(200, 0)); // 400 wide becomes 200
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 50, 100));
        QCOMPARE(sceneRectOf(b), QRectF(150, 50, 50, 100));
        QCOMPARE(desk->stack.count(), 1);
        QCOMPARE(desk->stack.command(0)->childCount(), 2);
        desk->stack.undo();
        QCOMPARE(sceneRectOf(a), QRectF(-200, 0, 100, 100));
        QCOMPARE(sceneRectOf(b), QRectF(100, 50, 100, 100));
    }

    void handle_lockedAspect_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QPointF>("by");
        QTest::addColumn<QRectF>("after");
        QTest::newRow("corner takes the smaller ratio")
            << 3 << QPointF(100, 50) << QRectF(0, 0, 150, 150);
        QTest::newRow("edge scales both ways") << 6 << QPointF(100, 0) << QRectF(0, 0, 200, 200);
    }
    void handle_lockedAspect()
    {
        QFETCH(int, index);
        QFETCH(QPointF, by);
        QFETCH(QRectF, after);
        auto *a = desk->addRect(0, 0);
        a->getShapeBase()->setLockAspectRatio(true);
        a->setSelected(true);
        const QPointF from = desk->handle(index);
        desk->user->drag(from, from + by);
        QCOMPARE(sceneRectOf(a), after);
        QCOMPARE(desk->frameRect(), after);
    }

    void handle_backToItsStart_stillRecordsATransform()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        const QPointF from = desk->handle(3);
        desk->user->press(from);
        desk->user->move(from + QPointF(30, 30));
        desk->user->move(from);
        desk->user->release(from);
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 100, 100));
        QCOMPARE(desk->stack.count(), 1);
        const QUndoCommand *ofItem = desk->stack.command(0)->child(0);
        QCOMPARE(ofItem->text(), QStringLiteral("item resize 0"));
        QCOMPARE(ofItem->childCount(), 1);
        QCOMPARE(ofItem->child(0)->text(), QStringLiteral("Transform 0"));
    }

    void handle_draggedToNoWidth_leavesTheLeast()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        const QPointF from = desk->handle(6);
        desk->user->press(from);
        desk->user->move(from + QPointF(-100, 0));
        QVERIFY(desk->frame().rect().width() == 9.999999747378752e-05);
        desk->user->release(from + QPointF(-100, 0));
        QVERIFY(a->boundingRect().width() > 0);
        desk->stack.undo();
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 100, 100));
    }

    void handle_draggedAcross_mirrorsTheFrameOnly()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        const QPointF from = desk->handle(6);
        desk->user->press(from);
        desk->user->move(from + QPointF(-150, 0));
        QCOMPARE(desk->frameRect(), QRectF(-50, 0, 50, 100));
        desk->user->release(from + QPointF(-150, 0));
        QCOMPARE(a->getTransformParam(), QTransform::fromScale(0.5, 1));
        QCOMPARE(sceneRectOf(a), QRectF(-50, 0, 50, 100));
    }

    void handles_stayTwentyPixels_atAnyZoom_data()
    {
        QTest::addColumn<double>("zoom");
        QTest::newRow("0.09") << 0.09;
        QTest::newRow("1") << 1.0;
        QTest::newRow("20") << 20.0;
    }
    void handles_stayTwentyPixels_atAnyZoom()
    {
        QFETCH(double, zoom);
        desk->addRect(0, 0)->setSelected(true);
        desk->view.setTransform(QTransform::fromScale(zoom, zoom));
        for (const QGraphicsItem *item : desk->frame().childItems()) {
            const QTransform toView = item->deviceTransform(desk->view.viewportTransform());
            QCOMPARE(toView.mapRect(QRectF(0, 0, 20, 20)).size(), QSizeF(20, 20));
        }
    }

    void handle_dragAtZoomTwo_movesInScenePixels()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        desk->view.setTransform(QTransform::fromScale(2, 2));
        const QPointF from = desk->handle(3);
        desk->user->drag(from, from + QPointF(25, 50));
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 125, 150));
    }

    void hover_showsTheCursorOfThePlace()
    {
        const Qt::CursorShape shapes[] = {
            Qt::SizeFDiagCursor, Qt::SizeBDiagCursor, Qt::SizeBDiagCursor, Qt::SizeFDiagCursor,
            Qt::SizeVerCursor,   Qt::SizeHorCursor,   Qt::SizeHorCursor,   Qt::SizeVerCursor};
        desk->addRect(0, 0)->setSelected(true);
        desk->user->move({-300, -200});
        QVERIFY(!desk->frame().hasCursor());
        desk->user->move({50, 50});
        QCOMPARE(desk->frame().cursor().shape(), Qt::SizeAllCursor);
        QCOMPARE(desk->view.viewport()->cursor().shape(), Qt::SizeAllCursor);
        for (int i = 0; i < 8; ++i) {
            desk->user->move(desk->handle(i));
            QCOMPARE(desk->frame().childItems().at(i)->cursor().shape(), shapes[i]);
            QCOMPARE(desk->view.viewport()->cursor().shape(), shapes[i]);
        }
        desk->user->move({-300, -200});
        QCOMPARE(desk->frame().cursor().shape(), Qt::SizeAllCursor);
    }

    void itemChangingDuringADrag_doesNotPullTheFrame()
    {
        auto *a = desk->addRect(0, 0);
        auto *b = desk->addRect(200, 0);
        a->setSelected(true);
        b->setSelected(true);
        desk->user->press({50, 50});
        desk->user->move({60, 50});
        b->scale(3, 3);
        QCOMPARE(desk->frameRect(), QRectF(10, 0, 300, 100));
        desk->user->release({60, 50});
        a->setPos(10, 1);
        QCOMPARE(desk->frameRect(), QRectF(10, 0, 500, 300));
    }

    void withoutStack_dragsHappenUnrecorded()
    {
        auto *a = desk->addRect(0, 0);
        desk->scene->setUndoStack(nullptr);
        a->setSelected(true);
        desk->user->drag({50, 50}, {60, 70});
        QCOMPARE(a->pos(), QPointF(10, 20));
        const QPointF from = desk->handle(0);
        desk->user->drag(from, from + QPointF(-100, 0));
        QCOMPARE(sceneRectOf(a), QRectF(-90, 20, 200, 100));
    }

    void undoOfADrag_bringsBackTheVeryPlace_beside0()
    {
        // What rounding leaves of a 0: less than the frame's corner at 30.3 can tell apart.
        constexpr double kRest = -4.4408920985006262e-15;
        ZTAbstractGraphicsItem *rest = desk->addRect(10.1, kRest);
        ZTAbstractGraphicsItem *above = desk->addRect(0, -30.3);
        rest->setSelected(true);
        above->setSelected(true);
        const QPointF middle = desk->frame().pos() + desk->frame().rect().center();
        desk->user->drag(middle, middle + QPointF(20, 10));
        QCOMPARE(desk->stack.count(), 1);
        desk->stack.undo();
        QVERIFY(rest->y() == kRest); // to the last bit
        QVERIFY(above->y() == -30.3);
    }

    void selectionChangingDuringADrag_endsIt_undoably()
    {
        auto *a = desk->addRect(0, 0);
        auto *b = desk->addRect(200, 0);
        a->setSelected(true);
        desk->user->press({50, 50});
        desk->user->move({90, 50});
        b->setSelected(true);
        QCOMPARE(desk->stack.count(), 1);
        QCOMPARE(desk->frameRect(), QRectF(40, 0, 260, 100));
        desk->user->move({150, 150});
        QCOMPARE(a->pos(), QPointF(40, 0));
        QCOMPARE(b->pos(), QPointF(200, 0));
        desk->user->release({150, 150});
        QCOMPARE(desk->stack.count(), 1);
        QVERIFY(desk->frame().isEnableResizeFromChild());
        desk->stack.undo();
        QCOMPARE(a->pos(), QPointF(0, 0));
        a->setPos(-100, 0);
        desk->user->drag({-50, 50}, {-40, 50});
        QCOMPARE(a->pos(), QPointF(-90, 0));
        QCOMPARE(b->pos(), QPointF(210, 0));
    }

    void selectionChangingDuringAResize_dropsIt()
    {
        auto *a = desk->addRect(0, 0);
        auto *b = desk->addRect(200, 0);
        a->setSelected(true);
        const QPointF from = desk->handle(3);
        desk->user->press(from);
        desk->user->move(from + QPointF(50, 50));
        b->setSelected(true);
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 300, 100));
        desk->user->release(from + QPointF(50, 50));
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 100, 100));
        QCOMPARE(desk->stack.count(), 0);
        const QPointF again = desk->handle(3);
        desk->user->drag(again, again + QPointF(30, 0));
        QCOMPARE(sceneRectOf(b), QRectF(220, 0, 110, 100));
    }

    void itemsDeletedDuringADrag_leaveTheRest()
    {
        auto *a = desk->addRect(0, 0);
        auto *b = desk->addRect(200, 0);
        a->setSelected(true);
        b->setSelected(true);
        desk->user->press({50, 50});
        desk->user->move({60, 50});
        delete a;
        desk->user->move({70, 50});
        desk->user->release({70, 50});
        QCOMPARE(b->pos(), QPointF(210, 0));
        QCOMPARE(desk->frameRect(), QRectF(210, 0, 100, 100));
        desk->stack.undo();
        QCOMPARE(b->pos(), QPointF(200, 0));
    }

    void allItemsDeletedDuringADrag_leaveAWorkingFrame()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        desk->user->press({50, 50});
        desk->user->move({60, 50});
        delete a;
        QVERIFY(!desk->frame().isVisible());
        desk->user->release({70, 50});
        desk->stack.undo();
        auto *b = desk->addRect(200, 0);
        b->setSelected(true);
        QCOMPARE(desk->frameRect(), QRectF(200, 0, 100, 100));
        desk->user->drag({250, 50}, {260, 50});
        QCOMPARE(b->pos(), QPointF(210, 0));
    }

    void listenerThatDeletesDuringADrag_isHarmless()
    {
        auto *a = desk->addRect(0, 0);
        QPointer<ZTGraphicsRectItem> b = desk->addRect(200, 0);
        a->setSelected(true);
        b->setSelected(true);
        connect(a, &ZTAbstractGraphicsItem::posChanged, this, [&] { delete b; });
        desk->user->drag({50, 50}, {60, 50});
        QVERIFY(b.isNull());
        desk->stack.undo();
        desk->stack.redo();
    }

    void sceneDestroyedDuringADrag_isHarmless()
    {
        desk->addRect(0, 0)->setSelected(true);
        desk->user->press({50, 50});
        desk->user->move({60, 50});
        desk->scene.reset();
        desk->user->move({70, 50});
        desk->user->release({70, 50});
        desk->stack.undo();
        QCOMPARE(desk->stack.count(), 0);
    }

    void kept_undoToARecordedSize_leavesTheFrameBehind()
    {
        auto *a = desk->addRect(0, 0);
        a->setSelected(true);
        a->setTransformParam(QTransform()); // records 100 by 100
        const QPointF from = desk->handle(3);
        desk->user->drag(from, from + QPointF(50, 50));
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 150, 150));
        desk->stack.undo();
        QCOMPARE(sceneRectOf(a), QRectF(0, 0, 100, 100));
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 150, 150));
        desk->frame().resizeFromChild();
        QCOMPARE(desk->frameRect(), QRectF(0, 0, 100, 100));
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<Desk> desk;
};

QTEST_MAIN(tst_gui_ZTGraphicsResizeItem)
#include "tst_ZTGraphicsResizeItem.moc"
