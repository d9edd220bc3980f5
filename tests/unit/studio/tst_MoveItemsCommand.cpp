#include "StudioTest.h"

#include <studio/commands/MoveItemsCommand.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using studio::MoveItemsCommand;
using studio::ShapeItem;

class tst_MoveItemsCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void undoAndRedo_areExact()
    {
        ShapeItem *first = test->addRect(0.1, 0.2);
        ShapeItem *second = test->addRect(1.0 / 3.0, 70);
        const DrawingSnapshot before = test->snapshot();
        push({{first, {10.7, 1.0 / 7.0}}, {second, {0, 0}}});
        QCOMPARE(first->pos().y(), 1.0 / 7.0);
        const DrawingSnapshot after = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
        QCOMPARE(stack()->count(), 1);
        QCOMPARE(stack()->text(0), QStringLiteral("Move"));
    }

    /** Qt takes places within some 1e-12 for the same. */
    void almostNothing_isDoneAndUndoneExactly()
    {
        ShapeItem *item = test->addRect(-466.25, 0);
        push({{item, {-466.25, -2.3e-13}}});
        QVERIFY(item->pos().y() == -2.3e-13);
        stack()->undo();
        QVERIFY(item->pos().y() == 0.0);
        stack()->redo();
        QVERIFY(item->pos().y() == -2.3e-13);
    }

    void eachStep_announcesEachMoveOnce()
    {
        ShapeItem *item = test->addRect(0, 0);
        QSignalSpy moved(item, &ShapeItem::posChanged);
        push({{item, {5, 5}}});
        QCOMPARE(moved.count(), 1);
        stack()->undo();
        QCOMPARE(moved.count(), 2);
    }

    void targetAlreadyReached_announcesNothing()
    {
        ShapeItem *item = test->addRect(3, 4);
        QSignalSpy moved(item, &ShapeItem::posChanged);
        push({{item, {3, 4}}});
        stack()->undo();
        QCOMPARE(moved.count(), 0);
    }

    void shapesDeletedByOthers_arePassedOver()
    {
        ShapeItem *doomed = test->addRect(0, 0);
        ShapeItem *kept = test->addRect(0, 0);
        push({{doomed, {5, 5}}, {kept, {6, 6}}});
        delete doomed;
        stack()->undo();
        QCOMPARE(kept->pos(), QPointF(0, 0));
        stack()->redo();
        QCOMPARE(kept->pos(), QPointF(6, 6));
    }

    void frame_fitsAfterEachStep()
    {
        ShapeItem *item = test->addRect(0, 0);
        test->select({item});
        const ZTGraphicsResizeItem *frame = test->document->scene()->getGraphicsResizeItem();
        push({{item, {40, 30}}});
        QCOMPARE(frame->pos(), QPointF(40, 30));
        stack()->undo();
        QCOMPARE(frame->pos(), QPointF(0, 0));
        QVERIFY(frame->isEnableResizeFromChild());
    }

private:
    void push(const QVector<studio::ItemMove> &moves)
    {
        stack()->push(new MoveItemsCommand(test->document->scene(), moves, QStringLiteral("Move")));
    }

    QUndoStack *stack() const { return test->document->undoStack(); }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_MoveItemsCommand)
#include "tst_MoveItemsCommand.moc"
