#include "StudioTest.h"

#include <studio/commands/HatchCommand.h>

#include <QtTest/QTest>

#include <cmath>

using studio::HatchCommand;
using studio::ShapeItem;

class tst_HatchCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void undoAndRedo_areExact()
    {
        ShapeItem *plain = test->addRect(0, 0);
        ShapeItem *hatched = test->addRect(100, 0);
        ZTFillParam own;
        own.fillType = FillType::ULine;
        own.spac = 0.7;
        hatched->setFillParam(own);
        const DrawingSnapshot before = test->snapshot();
        push({plain, hatched}, [](ZTFillParam &fill) {
            fill.fillType = FillType::Line;
            fill.angle += 30.0;
        });
        QVERIFY(plain->getFillParam().fillType == FillType::Line);
        QCOMPARE(plain->getFillParam().spac, 2.0);
        QCOMPARE(hatched->getFillParam().spac, 0.7);
        QCOMPARE(hatched->getFillParam().angle, 30.0);
        const DrawingSnapshot after = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
        QVERIFY(hatched->getFillParam() == own);
        QCOMPARE(stack()->count(), 1);
        QCOMPARE(stack()->text(0), QStringLiteral("Hatch"));
    }

    // The records of the engine call spacings equal that differ by less than their twelfth digit.
    void theLastBit_isAChange()
    {
        ShapeItem *item = test->addRect(0, 0);
        const double next = std::nextafter(2.0, 3.0);
        const HatchCommand command(
            test->document->scene(), {item}, [next](ZTFillParam &fill) { fill.spac = next; },
            QString());
        QVERIFY(!command.changesNothing());
        push({item}, [next](ZTFillParam &fill) { fill.spac = next; });
        QVERIFY(item->getFillParam().spac == next);
        stack()->undo();
        QVERIFY(item->getFillParam().spac == 2.0);
    }

    void noChange_isKnown()
    {
        const HatchCommand command(
            test->document->scene(), {test->addRect(0, 0), nullptr}, [](ZTFillParam &) {},
            QString());
        QVERIFY(command.changesNothing());
    }

    void shapesThatAreNullOrDeleted_arePassedOver()
    {
        ShapeItem *doomed = test->addRect(0, 0);
        ShapeItem *kept = test->addRect(0, 0);
        push({nullptr, doomed, kept}, [](ZTFillParam &fill) { fill.isEnableBorder = false; });
        delete doomed;
        stack()->undo();
        QVERIFY(kept->getFillParam().isEnableBorder);
        stack()->redo();
        QVERIFY(!kept->getFillParam().isEnableBorder);
    }

private:
    void push(const studio::ShapeItems &items, const HatchCommand::Change &change)
    {
        stack()->push(
            new HatchCommand(test->document->scene(), items, change, QStringLiteral("Hatch")));
    }

    QUndoStack *stack() { return test->document->undoStack(); }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_HatchCommand)
#include "tst_HatchCommand.moc"
