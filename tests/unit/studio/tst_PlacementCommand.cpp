#include "StudioTest.h"

#include <studio/commands/PlacementCommand.h>

#include <QtTest/QTest>

using studio::moved;
using studio::Placement;
using studio::PlacementCommand;
using studio::ShapeItem;
using studio::ShapeItems;
using studio::stretched;
using studio::turned;

class tst_PlacementCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void undoAndRedo_areExact()
    {
        ShapeItem *first = test->addRect(0.1, 0.2);
        ShapeItem *second = test->add(ShapeType::Ellipse, 33.3, 7.7);
        test->select({first});
        const DrawingSnapshot before = test->snapshot();
        push({turned(*first, {3, 4}, 100.0 / 3.0), stretched(*second, {1, 2}, 1.1, 0.3)});
        const DrawingSnapshot after = test->snapshot();
        QVERIFY(before != after);
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
        QCOMPARE(stack()->count(), 1);
        QCOMPARE(stack()->text(0), QStringLiteral("Place"));
    }

    void frame_followsOnce()
    {
        ShapeItem *first = test->addRect(0, 0);
        ShapeItem *second = test->addRect(100, 0);
        test->select({first, second});
        const ZTGraphicsResizeItem *frame = test->document->scene()->getGraphicsResizeItem();
        push({moved(*first, {10, 0}), moved(*second, {10, 5})});
        const QRectF frameBox = frame->rect().translated(frame->pos());
        const QRectF box = studio::sceneBox({first, second});
        QVERIFY((frameBox.topLeft() - box.topLeft()).manhattanLength() < 1e-9);
        QVERIFY((frameBox.bottomRight() - box.bottomRight()).manhattanLength() < 1e-9);
    }

    // So many at once that the scene notes their places all together.
    void thousands_areFoundWhereTheyAre()
    {
        ZTGraphicsScene &scene = *test->document->scene();
        QVector<Placement> placements;
        ShapeItems all;
        for (int i = 0; i < 1500; ++i)
            all << test->addRect((i % 50) * 12, (i / 50) * 12);
        scene.setBspTreeDepth(5);
        const QRectF where(250, 130, 100, 60);
        const QList<QGraphicsItem *> before = scene.items(where);
        QVERIFY(before.size() > 10);
        const QPointF wayMm = ZTCoord::getInstance()->getPix2MmTransform().map(QPointF(1500, 0));
        for (ShapeItem *item : qAsConst(all))
            placements << moved(*item, wayMm);
        push(placements);
        QCOMPARE(scene.items(where).size(), 0);
        QCOMPARE(scene.items(where.translated(1500, 0)), before);
        QCOMPARE(scene.itemIndexMethod(), QGraphicsScene::BspTreeIndex);
        QCOMPARE(scene.bspTreeDepth(), 5);
        stack()->undo();
        QCOMPARE(scene.items(where), before);
        stack()->redo();
        QCOMPARE(scene.items(where).size(), 0);
        QCOMPARE(scene.items(where.translated(1500, 0)), before);
    }

    void presentPlacement_changesNothing()
    {
        ShapeItem *item = test->addRect(5, 6);
        const DrawingSnapshot before = test->snapshot();
        push({Placement(*item)});
        COMPARE_DRAWINGS(test->snapshot(), before);
    }

    void shapesDeletedByOthers_arePassedOver()
    {
        ShapeItem *doomed = test->addRect(0, 0);
        ShapeItem *kept = test->addRect(50, 0);
        push({moved(*doomed, {1, 0}), moved(*kept, {1, 0})});
        const QPointF there = kept->pos();
        delete doomed;
        stack()->undo();
        QCOMPARE(kept->pos(), QPointF(50, 0));
        stack()->redo();
        QCOMPARE(kept->pos(), there);
    }

private:
    void push(const QVector<Placement> &placements)
    {
        stack()->push(new PlacementCommand(test->document->scene(), placements,
                                           QStringLiteral("Place"),
                                           test->document->itemMag()->itemModel()->rowCount()));
    }

    QUndoStack *stack() { return test->document->undoStack(); }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_PlacementCommand)
#include "tst_PlacementCommand.moc"
