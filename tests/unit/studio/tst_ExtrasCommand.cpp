#include "StudioTest.h"

#include <studio/commands/ExtrasCommand.h>
#include <studio/edit/DocumentActions.h>

#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

using studio::ExtrasCommand;
using studio::ShapeItems;

class tst_ExtrasCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<DocumentTest>(); }
    void cleanup() { studio.reset(); }

    void change_isDoneUndoneAndRedone_forEachShapeItsOwn()
    {
        studio::ShapeItem *one = studio->addRect(0, 0);
        studio::ShapeItem *two = studio->addRect(50, 0);
        hostkit::ItemExtras named;
        named.name = QStringLiteral("frame");
        hostkit::setItemExtras(*one, named);
        auto *command = new ExtrasCommand(
            {one, two, nullptr}, [](hostkit::ItemExtras &extras) { extras.isHidden = true; },
            QStringLiteral("Hide"));
        QVERIFY(!command->changesNothing());
        QUndoStack &stack = *studio->document->undoStack();
        stack.push(command);
        QCOMPARE(stack.count(), 1);
        QCOMPARE(stack.undoText(), QStringLiteral("Hide"));
        QVERIFY(!one->isVisible() && !two->isVisible());
        QCOMPARE(hostkit::itemExtras(*one).name, QStringLiteral("frame"));
        stack.undo();
        QVERIFY(one->isVisible() && two->isVisible());
        QVERIFY(hostkit::itemExtras(*one) == named);
        QVERIFY(hostkit::itemExtras(*two) == hostkit::ItemExtras());
        stack.redo();
        QVERIFY(!hostkit::isMarked(*one) && !hostkit::isMarked(*two));
    }

    void stateThatIsThereAlready_changesNothing()
    {
        studio::ShapeItem *item = studio->addRect(0, 0);
        const ExtrasCommand command(
            {item}, [](hostkit::ItemExtras &extras) { extras.isMarked = true; }, QString());
        QVERIFY(command.changesNothing());
    }

    void shapeThatOthersDelete_isPassedOver()
    {
        studio::ShapeItem *item = studio->addRect(0, 0);
        ExtrasCommand command(
            {item}, [](hostkit::ItemExtras &extras) { extras.isLocked = true; }, QString());
        delete item;
        command.redo();
        command.undo();
    }

    void duplicateAndMatrix_takeTheExtrasAlong()
    {
        studio::ShapeItem *item = studio->addRect(0, 0);
        hostkit::ItemExtras extras;
        extras.name = QStringLiteral("frame");
        extras.isMarked = false;
        extras.groupPath = {3};
        hostkit::setItemExtras(*item, extras);
        studio::DocumentActions actions(*studio->document);
        item->setSelected(true);
        actions.duplicate();
        studio::selectOnly(*studio->document->scene(), {item});
        QCOMPARE(actions.repeat(2, 2, QSizeF(1.0, 1.0)), 3);
        const ShapeItems all = studio::shapeItemsOf(*studio->document->scene());
        QCOMPARE(all.size(), 5);
        for (const studio::ShapeItem *one : all)
            QVERIFY(hostkit::itemExtras(*one) == extras);
    }

private:
    std::unique_ptr<DocumentTest> studio;
};

QTEST_MAIN(tst_ExtrasCommand)
#include "tst_ExtrasCommand.moc"
