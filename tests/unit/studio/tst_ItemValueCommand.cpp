#include "StudioTest.h"

#include <studio/commands/ItemValueCommand.h>

#include <QtTest/QTest>

using studio::ShapeItem;

class tst_ItemValueCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void pen_undoAndRedo_areExact()
    {
        ShapeItem *first = test->addRect(0, 0);
        ShapeItem *second = test->addRect(50, 0);
        second->setPenId(20);
        const DrawingSnapshot before = test->snapshot();
        stack()->push(new studio::PenCommand({first, second}, 5, QStringLiteral("Pen")));
        QCOMPARE(first->getPenId(), 5);
        QCOMPARE(second->getPenId(), 5);
        const DrawingSnapshot after = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
        QCOMPARE(first->getPenId(), 1);
        QCOMPARE(second->getPenId(), 20);
        QCOMPARE(stack()->count(), 1);
        QCOMPARE(stack()->text(0), QStringLiteral("Pen"));
    }

    void pen_alreadyHeld_changesNothing()
    {
        ShapeItem *item = test->addRect(0, 0);
        stack()->push(new studio::PenCommand({item}, 1, QString()));
        QCOMPARE(item->getPenId(), 1);
        stack()->undo();
        QCOMPARE(item->getPenId(), 1);
    }

    void aspectLock_undoAndRedo()
    {
        ShapeItem *free = test->addRect(0, 0);
        ShapeItem *locked = test->addRect(50, 0);
        locked->getShapeBase()->setLockAspectRatio(true);
        stack()->push(new studio::AspectLockCommand({free, locked}, true, QString()));
        QVERIFY(studio::isAspectLocked(*free) && studio::isAspectLocked(*locked));
        stack()->undo();
        QVERIFY(!studio::isAspectLocked(*free) && studio::isAspectLocked(*locked));
        stack()->redo();
        QVERIFY(studio::isAspectLocked(*free) && studio::isAspectLocked(*locked));
        stack()->undo();
        QVERIFY(!studio::isAspectLocked(*free) && studio::isAspectLocked(*locked));
    }

    void shapesThatAreNullOrDeleted_arePassedOver()
    {
        ShapeItem *doomed = test->addRect(0, 0);
        ShapeItem *kept = test->addRect(0, 0);
        stack()->push(new studio::PenCommand({nullptr, doomed, kept}, 3, QString()));
        delete doomed;
        stack()->undo();
        QCOMPARE(kept->getPenId(), 1);
        stack()->redo();
        QCOMPARE(kept->getPenId(), 3);
    }

private:
    QUndoStack *stack() { return test->document->undoStack(); }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_ItemValueCommand)
#include "tst_ItemValueCommand.moc"
