#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

#include <memory>

class tst_ZTItemPropertyCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void push_undo_redo_writeTheProperty()
    {
        ZTGraphicsPolygonItem item;
        QUndoStack stack;
        stack.push(new ZTItemPropertyCommand(&item, QStringLiteral("SideCount"), 8));
        QCOMPARE(stack.command(0)->text(), QStringLiteral("Property"));
        QCOMPARE(stack.command(0)->id(), -1);
        QCOMPARE(item.getSideCount(), 8);
        stack.undo();
        QCOMPARE(item.getSideCount(), 5);
        stack.redo();
        QCOMPARE(item.getSideCount(), 8);
        stack.undo();
        QCOMPARE(item.getSideCount(), 5);
        QCOMPARE(stack.count(), 1);
    }

    void records_travelThroughTheCommand()
    {
        ZTGraphicsRectItem item;
        ZTFillParam param;
        param.angle = 30.0;
        QUndoStack stack;
        stack.push(new ZTItemPropertyCommand(&item, QStringLiteral("fillParam"),
                                             QVariant::fromValue(param)));
        QCOMPARE(item.getFillParam().angle, 30.0);
        stack.undo();
        QCOMPARE(item.getFillParam().angle, 0.0);
    }

    void equalValue_isWrittenAllTheSame()
    {
        QObject object;
        object.setProperty("written", 1);
        ZTItemPropertyCommand command(&object, QStringLiteral("written"), 1);
        object.setProperty("written", 2);
        command.redo();
        QCOMPARE(object.property("written").toInt(), 1);
    }

    void builtAfterTheChange_takesTheNewValueAsTheOld()
    {
        ZTGraphicsPolygonItem item;
        item.setSideCount(8);
        QUndoStack stack;
        stack.push(new ZTItemPropertyCommand(&item, QStringLiteral("SideCount"), 8));
        stack.undo();
        QCOMPARE(item.getSideCount(), 8);
    }

    void nameOutsideAscii_isUtf8()
    {
        const QString name = QString::fromUtf8("gr\xc3\xb6\xc3\x9f"
                                               "e");
        QObject object;
        ZTItemPropertyCommand command(&object, name, 3);
        command.redo();
        QCOMPARE(object.property(name.toUtf8().constData()).toInt(), 3);
    }

    void successiveEdits_stayTwoSteps()
    {
        ZTGraphicsPolygonItem item;
        QUndoStack stack;
        stack.push(new ZTItemPropertyCommand(&item, QStringLiteral("SideCount"), 8));
        stack.push(new ZTItemPropertyCommand(&item, QStringLiteral("SideCount"), 9));
        QCOMPARE(stack.count(), 2);
        stack.undo();
        QCOMPARE(item.getSideCount(), 8);
    }

    void nullOrDeletedObject_isSafe()
    {
        QUndoStack stack;
        stack.push(new ZTItemPropertyCommand(nullptr, QStringLiteral("SideCount"), 8));
        auto item = std::make_unique<ZTGraphicsPolygonItem>();
        stack.push(new ZTItemPropertyCommand(item.get(), QStringLiteral("SideCount"), 8));
        item.reset();
        stack.undo();
        stack.undo();
        stack.redo();
        stack.redo();
    }
};

QTEST_MAIN(tst_ZTItemPropertyCommand)
#include "tst_ZTItemPropertyCommand.moc"
