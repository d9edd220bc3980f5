#include <support/SceneDriver.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

/** So many rectangles of five strokes each are carried as a picture; so few are not. */
constexpr int kMany = 600;
constexpr int kFew = 100;

constexpr double kPitchPx = 8.0;
constexpr int kInRow = 30;

const QPointF kFrom(150, 100);

/** Greatest difference of a colour between two pictures of one size; 255 for others. */
int difference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 255;
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            most = std::max({most, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                             std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return most;
}

/** What is laid over each other first, and then over the ground, is rounded once more. */
constexpr int kRounding = 2;

/** Small rectangles in rows, in a view of 400 by 300 pixels, one a scene pixel. */
class Desk
{
public:
    explicit Desk(int count)
    {
        scene->setUndoStack(&stack);
        view.setFrameShape(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setTransformationAnchor(QGraphicsView::AnchorViewCenter);
        view.setRenderHint(QPainter::Antialiasing);
        view.setSceneRect(0, 0, 400, 300);
        view.resize(400, 300);
        for (int i = 0; i < count; ++i) {
            auto *item = new ZTGraphicsRectItem;
            item->setTransformParam(QTransform::fromScale(0.06, 0.08)); // overlap a little
            item->setPenId(1 + i % 16);
            item->setZValue(i % 3);
            item->setPos(60.5 + (i % kInRow) * kPitchPx, 40.25 + (i / kInRow) * kPitchPx);
            scene->addItem(item);
            items.push_back(item);
        }
        view.setScene(scene.get());
        user = std::make_unique<testsupport::SceneDriver>(view);
    }

    void selectAll()
    {
        for (ZTAbstractGraphicsItem *item : items)
            item->setSelected(true);
    }

    /** Press and the first move, with which nothing is carried yet. */
    void beginDrag()
    {
        user->press(kFrom);
        user->move(kFrom + QPointF(5, 0));
    }

    QImage shown()
    {
        QCoreApplication::processEvents();
        return view.viewport()->grab().toImage();
    }

    std::vector<QPointF> places() const
    {
        std::vector<QPointF> all;
        for (const ZTAbstractGraphicsItem *item : items)
            all.push_back(item->pos());
        return all;
    }

    QUndoStack stack;
    std::unique_ptr<ZTGraphicsScene> scene = std::make_unique<ZTGraphicsScene>();
    QGraphicsView view;
    std::unique_ptr<testsupport::SceneDriver> user;
    std::vector<ZTAbstractGraphicsItem *> items;
};

bool isCarried(const ZTAbstractGraphicsItem &item)
{
    return item.flags().testFlag(QGraphicsItem::ItemHasNoContents);
}

} // namespace

class tst_gui_ZTCarriedItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void few_arePaintedOneByOne()
    {
        Desk desk(kFew);
        desk.selectAll();
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(30, 20));
        QVERIFY(!isCarried(*desk.items.front()));
        QCOMPARE(desk.scene->itemIndexMethod(), QGraphicsScene::BspTreeIndex);
        desk.user->release(kFrom + QPointF(30, 20));
    }

    void drag_movesEachItemLive_andIsOneStep()
    {
        Desk desk(kMany);
        desk.scene->setBspTreeDepth(7);
        desk.selectAll();
        const std::vector<QPointF> before = desk.places();
        QSignalSpy moved(desk.items.back(), &ZTAbstractGraphicsItem::posChanged);
        desk.beginDrag();
        QVERIFY(!isCarried(*desk.items.front()));
        desk.user->move(kFrom + QPointF(30, 20));
        QVERIFY(isCarried(*desk.items.front()));
        for (std::size_t i = 0; i < before.size(); ++i)
            QCOMPARE(desk.items[i]->pos(), before[i] + QPointF(30, 20));
        QVERIFY(moved.count() > 0);
        desk.user->move(kFrom + QPointF(-10, 5));
        QCOMPARE(desk.items[7]->pos(), before[7] + QPointF(-10, 5));
        desk.user->release(kFrom + QPointF(-10, 5));

        QVERIFY(!isCarried(*desk.items.front()));
        QCOMPARE(desk.scene->itemIndexMethod(), QGraphicsScene::BspTreeIndex);
        QCOMPARE(desk.scene->bspTreeDepth(), 7);
        QCOMPARE(desk.stack.count(), 1);
        QCOMPARE(desk.stack.command(0)->childCount(), kMany);
        desk.stack.undo();
        for (std::size_t i = 0; i < before.size(); ++i)
            QVERIFY(desk.items[i]->pos().x() == before[i].x() &&
                    desk.items[i]->pos().y() == before[i].y());
        desk.stack.redo();
        QCOMPARE(desk.items[7]->pos(), before[7] + QPointF(-10, 5));
    }

    /** What is marked or saved meanwhile has its order. */
    void whileCarried_theSceneKnowsTheOrderAndThePlaces()
    {
        Desk desk(kMany);
        desk.selectAll();
        desk.items[50]->setSelected(false); // what is deleted ends no drag
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(9, 9));
        const QList<QGraphicsItem *> ascending = desk.scene->items(Qt::AscendingOrder);
        QList<QGraphicsItem *> descending = desk.scene->items(Qt::DescendingOrder);
        delete desk.items[50];
        desk.items.erase(desk.items.begin() + 50);
        desk.user->move(kFrom + QPointF(40, 30));
        QVERIFY(isCarried(*desk.items[0]));
        const QList<QGraphicsItem *> now = desk.scene->items(Qt::AscendingOrder);
        std::reverse(descending.begin(), descending.end());
        QCOMPARE(descending, ascending);
        double z = 0.0;
        for (const QGraphicsItem *item : now) {
            if (item->parentItem() != nullptr)
                continue; // a handle
            QVERIFY(item->zValue() >= z);
            z = item->zValue();
        }
        QCOMPARE(now.size(), ascending.size() - 1);
        const QPointF middle = desk.items[7]->sceneBoundingRect().center();
        QVERIFY(desk.scene->items(middle).contains(desk.items[7]));
        desk.user->release(kFrom + QPointF(40, 30));
    }

    void undoAndRedo_letTheFrameFollow()
    {
        Desk desk(kMany);
        desk.selectAll();
        const ZTGraphicsResizeItem &frame = *desk.scene->getGraphicsResizeItem();
        const QRectF before = frame.rect().translated(frame.pos());
        desk.user->drag(kFrom, kFrom + QPointF(40, 30));
        QSignalSpy moved(&frame, &ZTGraphicsResizeItem::sigPosChanged);
        desk.stack.undo();
        QCOMPARE(frame.rect().translated(frame.pos()), before);
        QCOMPARE(moved.count(), 1);
        QVERIFY(frame.isEnableResizeFromChild());
        desk.stack.redo();
        QCOMPARE(frame.rect().translated(frame.pos()), before.translated(40, 30));
        QCOMPARE(moved.count(), 2);
        // A frame that its owner told not to follow does not, and is told nothing else.
        desk.scene->getGraphicsResizeItem()->setEnableResizeFromChild(false);
        desk.stack.undo();
        QCOMPARE(frame.rect().translated(frame.pos()), before.translated(40, 30));
        QVERIFY(!frame.isEnableResizeFromChild());
    }

    void undo_afterSomeHaveGone_movesTheOthers()
    {
        Desk desk(kMany);
        desk.selectAll();
        const std::vector<QPointF> before = desk.places();
        desk.user->drag(kFrom, kFrom + QPointF(40, 30));
        delete desk.items.front();
        delete desk.items.back();
        desk.stack.undo();
        QCOMPARE(desk.items[1]->pos(), before[1]);
        desk.stack.redo();
        QCOMPARE(desk.items[1]->pos(), before[1] + QPointF(40, 30));
        const ZTGraphicsResizeItem &frame = *desk.scene->getGraphicsResizeItem();
        QVERIFY(frame.isEnableResizeFromChild());
        // What was undone is found where it is.
        desk.stack.undo();
        QVERIFY(
            desk.scene->items(desk.items[1]->sceneBoundingRect().center()).contains(desk.items[1]));
    }

    /** After the release the items are painted one by one: the same picture. */
    void picture_isWhatTheItemsPaint_data()
    {
        QTest::addColumn<QPointF>("way");
        QTest::newRow("within sight") << QPointF(40, -15);
        QTest::newRow("partly out of sight") << QPointF(-120, 60);
        QTest::newRow("wholly out of sight") << QPointF(-400, 0);
    }
    void picture_isWhatTheItemsPaint()
    {
        QFETCH(QPointF, way);
        Desk desk(kMany);
        desk.selectAll();
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(3, 1));
        desk.shown(); // takes the picture
        desk.user->move(kFrom + way);
        QVERIFY(isCarried(*desk.items.front()));
        const QImage carried = desk.shown();
        desk.user->release(kFrom + way);
        QVERIFY(!isCarried(*desk.items.front()));
        QVERIFY(difference(carried, desk.shown()) <= kRounding);
    }

    void picture_comesBackIntoSight()
    {
        Desk desk(kMany);
        desk.selectAll();
        desk.beginDrag();
        for (const double x : {-380.0, -200.0, 200.0, 20.0}) {
            desk.user->move(kFrom + QPointF(x, 10));
            desk.shown();
        }
        const QImage carried = desk.shown();
        desk.user->release(kFrom + QPointF(20, 10));
        QVERIFY(difference(carried, desk.shown()) <= kRounding);
    }

    void othersAreShownAsEver()
    {
        Desk desk(kMany);
        desk.selectAll();
        for (std::size_t i = 0; i < desk.items.size(); i += 5)
            desk.items[i]->setSelected(false);
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(90, 70));
        QVERIFY(!isCarried(*desk.items.front()));
        QVERIFY(isCarried(*desk.items[1]));
        const QImage carried = desk.shown();
        desk.user->release(kFrom + QPointF(90, 70));
        // Where only the others are; elsewhere what is carried lies over them meanwhile.
        const QRect apart(0, 0, 140, 100);
        QVERIFY(difference(carried.copy(apart), desk.shown().copy(apart)) <= kRounding);
        QCOMPARE(desk.items.front()->pos(), QPointF(60.5, 40.25));
    }

    void anotherZoomOrPlaceOfTheView_isPaintedAnew()
    {
        Desk desk(kMany);
        desk.selectAll();
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(10, 10));
        desk.shown();
        desk.view.setTransform(QTransform::fromScale(2, 2));
        const QImage carried = desk.shown();
        desk.view.setSceneRect(20, 30, 400, 300);
        const QImage scrolled = desk.shown();
        desk.scene->clearSelection(); // ends the drag
        QVERIFY(!isCarried(*desk.items.front()));
        desk.selectAll();
        QVERIFY(difference(scrolled, desk.shown()) <= kRounding);
        desk.view.setSceneRect(0, 0, 400, 300);
        QVERIFY(difference(carried, desk.shown()) <= kRounding);
    }

    void renderedElsewhere_theItemsAreThere()
    {
        Desk desk(kMany);
        desk.selectAll();
        const auto rendered = [&desk] {
            QImage image(400, 300, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            desk.scene->render(&painter, image.rect(), QRectF(0, 0, 400, 300));
            painter.end();
            return image;
        };
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(11, 12));
        const QImage carried = rendered();
        desk.user->release(kFrom + QPointF(11, 12));
        QCOMPARE(carried, rendered());
    }

    void atTheBorder_itemsThatStay_areShownWhereTheyAre()
    {
        Desk desk(kMany);
        desk.scene->setSceneRect(0, 0, 330, 300); // the last columns cannot go far
        desk.selectAll();
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(2, 2));
        desk.shown();
        desk.user->move(kFrom + QPointF(60, 10));
        QCOMPARE(desk.items[kInRow - 1]->pos().x(), 330.0);
        const QImage carried = desk.shown();
        desk.user->move(kFrom + QPointF(2, 2));
        const QImage back = desk.shown();
        desk.user->move(kFrom + QPointF(60, 10));
        desk.user->release(kFrom + QPointF(60, 10));
        desk.scene->getGraphicsResizeItem()->hide();
        const QImage plain = desk.shown();
        QVERIFY(difference(plain, back) > 100);
        // The frame stands elsewhere afterwards: it follows those that stayed.
        QVERIFY(difference(carried.copy(320, 60, 20, 100), plain.copy(320, 60, 20, 100)) <=
                kRounding);
    }

    void itemsThatGoMeanwhile_areGone()
    {
        Desk desk(kMany);
        desk.selectAll();
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(10, 10));
        for (int i = 0; i < 300; ++i)
            delete desk.items[static_cast<std::size_t>(i)];
        desk.items.erase(desk.items.begin(), desk.items.begin() + 300);
        desk.user->move(kFrom + QPointF(20, 10));
        desk.shown();
        desk.user->release(kFrom + QPointF(20, 10));
        for (const ZTAbstractGraphicsItem *item : desk.items)
            QVERIFY(!isCarried(*item));
    }

    void aSceneThatGoesMeanwhile_endsTheDrag()
    {
        Desk desk(kMany);
        desk.selectAll();
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(10, 10));
        desk.scene.reset();
        QVERIFY(desk.view.scene() == nullptr);
    }

    void itemsPaintedInAWayOfTheirOwn_stayWithTheScene()
    {
        Desk desk(kMany);
        desk.items[3]->setOpacity(0.5);
        desk.items[4]->setFlag(QGraphicsItem::ItemHasNoContents);
        desk.selectAll();
        desk.beginDrag();
        desk.user->move(kFrom + QPointF(10, 10));
        QVERIFY(!isCarried(*desk.items[3]));
        QVERIFY(isCarried(*desk.items[5]));
        desk.user->release(kFrom + QPointF(10, 10));
        QVERIFY(isCarried(*desk.items[4])); // as its owner set it
        QVERIFY(!isCarried(*desk.items[5]));
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_gui_ZTCarriedItems)
#include "tst_ZTCarriedItems.moc"
