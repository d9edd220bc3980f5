#include "StudioTest.h"

#include <studio/commands/ItemSetCommand.h>

#include <QtTest/QTest>

using studio::AddItemsCommand;
using studio::DeleteItemsCommand;
using studio::ShapeItem;
using studio::ShapeItems;

class tst_ItemSetCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void add_pushed_selectsTheNewShapesAndChangesNothing()
    {
        ShapeItem *old = test->addRect(0, 0);
        test->select({old});
        const ShapeItems added{test->addRect(10, 0), test->add(ShapeType::Ellipse, 30, 0)};
        const DrawingSnapshot before = test->snapshot();
        stack()->push(new AddItemsCommand(manager(), added, {old}, QStringLiteral("Create")));
        COMPARE_DRAWINGS(test->snapshot(), before);
        QCOMPARE(selectedIds(*test->document), (QVector<int>{1, 2}));
        QCOMPARE(stack()->count(), 1);
        QCOMPARE(stack()->text(0), QStringLiteral("Create"));
    }

    void add_undoneAndRedone_takesTheSameShapesOutAndIn()
    {
        ShapeItem *old = test->addRect(0, 0);
        test->select({old});
        const DrawingSnapshot without = test->snapshot();
        const ShapeItems added{test->addRect(10, 0), test->add(ShapeType::Polygon, 30, 0)};
        const DrawingSnapshot with = test->snapshot();
        stack()->push(new AddItemsCommand(manager(), added, {old}, QStringLiteral("Create")));
        COMPARE_UNDO_AND_REDO(*test->document, without, with);
        QCOMPARE(selectedIds(*test->document), QVector<int>{0});
        stack()->redo();
        QCOMPARE(selectedIds(*test->document), (QVector<int>{1, 2}));
        QCOMPARE(stack()->count(), 1);
    }

    void add_undoneThenOverwritten_deletesTheShapes()
    {
        const QPointer<ShapeItem> item = test->addRect(0, 0);
        stack()->push(new AddItemsCommand(manager(), {item}, {}, QStringLiteral("Create")));
        stack()->undo();
        QVERIFY(item);
        stack()->push(new QUndoCommand(QStringLiteral("other")));
        QVERIFY(!item);
        QVERIFY(test->snapshot().stacked.isEmpty());
    }

    void add_undone_newShapesGetNewIds()
    {
        ShapeItem *item = test->addRect(0, 0);
        stack()->push(new AddItemsCommand(manager(), {item}, {}, QStringLiteral("Create")));
        stack()->undo();
        test->addRect(5, 5);
        stack()->redo();
        QCOMPARE(idsOf(test->snapshot()), (QVector<int>{0, 1}));
    }

    void remove_undoneAndRedone_keepsPlaceIdAndRow()
    {
        const ShapeItems items{test->addRect(0, 0), test->add(ShapeType::Line, 20, 0),
                               test->add(ShapeType::TDOT, 40, 0), test->addRect(60, 0)};
        const DrawingSnapshot with = test->snapshot();
        test->select({items[1], items[2]});
        stack()->push(
            new DeleteItemsCommand(manager(), {items[1], items[2]}, QStringLiteral("Delete")));
        QCOMPARE(idsOf(test->snapshot()), (QVector<int>{0, 3}));
        QCOMPARE(test->snapshot().rows,
                 (QStringList{QStringLiteral("0 Rect"), QStringLiteral("3 Rect")}));
        QVERIFY(selectedIds(*test->document).isEmpty());
        QVERIFY(!test->document->scene()->getGraphicsResizeItem()->isVisible());
        const DrawingSnapshot without = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, with, without);
        QCOMPARE(selectedIds(*test->document), (QVector<int>{1, 2}));
        QVERIFY(test->document->scene()->getGraphicsResizeItem()->isVisible());
    }

    void remove_keepsShapesAliveForOlderCommands()
    {
        ShapeItem *item = test->addRect(0, 0);
        stack()->push(new ZTItemPosCommand(item, item->pos(), {50, 60}, nullptr));
        test->select({item});
        stack()->push(new DeleteItemsCommand(manager(), {item}, QStringLiteral("Delete")));
        stack()->undo();
        stack()->undo();
        QCOMPARE(item->pos(), QPointF(0, 0));
        stack()->redo();
        QCOMPARE(item->pos(), QPointF(50, 60));
    }

    void remove_stackCleared_deletesTheShapes()
    {
        const QPointer<ShapeItem> item = test->addRect(0, 0);
        stack()->push(new DeleteItemsCommand(manager(), {item}, QStringLiteral("Delete")));
        QVERIFY(item);
        stack()->clear();
        QVERIFY(!item);
    }

    void documentCleared_withAllKindsOfStepsOnTheStack_isEmptyAndStartsAtIdZero()
    {
        const QPointer<ShapeItem> in = test->addRect(0, 0);
        stack()->push(new AddItemsCommand(manager(), {in}, {}, QStringLiteral("Create")));
        const QPointer<ShapeItem> out = test->addRect(9, 9);
        stack()->push(new DeleteItemsCommand(manager(), {out}, QStringLiteral("Delete")));
        const QPointer<ShapeItem> undone = test->addRect(5, 5);
        stack()->push(new AddItemsCommand(manager(), {undone}, {}, QStringLiteral("Create")));
        stack()->undo();
        test->document->clear();
        QVERIFY(!in && !out && !undone);
        QCOMPARE(stack()->count(), 0);
        QVERIFY(test->snapshot().rows.isEmpty());
        QCOMPARE(test->addRect(0, 0)->getShapeBase()->getId(), 0);
    }

    void documentDestroyed_withShapesTakenOut_deletesThem()
    {
        const QPointer<ShapeItem> out = test->addRect(0, 0);
        const QPointer<ShapeItem> in = test->addRect(1, 1);
        test->select({out, in});
        stack()->push(new DeleteItemsCommand(manager(), {out}, QStringLiteral("Delete")));
        test->document.reset();
        QVERIFY(!out && !in);
    }

    void shapesDeletedByOthers_arePassedOver()
    {
        ShapeItem *first = test->addRect(0, 0);
        ShapeItem *second = test->addRect(1, 1);
        stack()->push(new AddItemsCommand(manager(), {first, second}, {}, QStringLiteral("Add")));
        delete first;
        stack()->undo();
        stack()->redo();
        QCOMPARE(idsOf(test->snapshot()), QVector<int>{1});
    }

private:
    QUndoStack *stack() const { return test->document->undoStack(); }
    ZTShapeManager *manager() const { return test->document->itemMag(); }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_ItemSetCommand)
#include "tst_ItemSetCommand.moc"
