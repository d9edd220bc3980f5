#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

#include <memory>

class tst_ZTItemPosCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_namesShapeAndPosition_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QPointF>("newPos");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << 7 << QPointF(10.5, 20) << QStringLiteral("Pos 7 10.5,20");
        QTest::newRow("negative") << 0 << QPointF(-1, -0.25) << QStringLiteral("Pos 0 -1,-0.25");
        QTest::newRow("six digits")
            << 123 << QPointF(1.23456789, 1234567) << QStringLiteral("Pos 123 1.23457,1.23457e+06");
        QTest::newRow("negative id") << -5 << QPointF(0, 0) << QStringLiteral("Pos -5 0,0");
    }
    void text_namesShapeAndPosition()
    {
        QFETCH(int, id);
        QFETCH(QPointF, newPos);
        QFETCH(QString, text);
        ZTGraphicsRectItem item;
        item.getShapeBase()->setId(id);
        const ZTItemPosCommand command(&item, QPointF(), newPos, nullptr);
        QCOMPARE(command.text(), text);
    }

    void construct_movesNothing()
    {
        ZTGraphicsRectItem item;
        const ZTItemPosCommand command(&item, QPointF(1, 1), QPointF(2, 2));
        QCOMPARE(item.pos(), QPointF(0, 0));
    }

    void push_undo_redo_moveTheItem()
    {
        ZTGraphicsRectItem item;
        const QSignalSpy moves(&item, &ZTAbstractGraphicsItem::posChanged);
        QUndoStack stack;
        stack.push(new ZTItemPosCommand(&item, QPointF(0, 0), QPointF(5, 6)));
        QCOMPARE(item.pos(), QPointF(5, 6));
        QCOMPARE(moves.count(), 1);
        stack.undo();
        QCOMPARE(item.pos(), QPointF(0, 0));
        QCOMPARE(moves.count(), 2);
        stack.redo();
        QCOMPARE(item.pos(), QPointF(5, 6));
        stack.undo();
        QCOMPARE(item.pos(), QPointF(0, 0));
        QCOMPARE(moves.count(), 4);
        QCOMPARE(stack.count(), 1);
    }

    void push_afterTheMove_repeatsNothing()
    {
        ZTGraphicsRectItem item;
        item.setPos(5, 6);
        const QSignalSpy moves(&item, &ZTAbstractGraphicsItem::posChanged);
        QUndoStack stack;
        stack.push(new ZTItemPosCommand(&item, QPointF(0, 0), QPointF(5, 6)));
        stack.push(new ZTItemPosCommand(&item, QPointF(0, 0), QPointF(5, 6.0 + 1e-14)));
        QCOMPARE(moves.count(), 0);
    }

    void undo_whereTheItemAlreadyIs_repeatsNothing()
    {
        ZTGraphicsRectItem item;
        QUndoStack stack;
        stack.push(new ZTItemPosCommand(&item, QPointF(1, 1), QPointF(5, 6)));
        item.setPos(1, 1);
        const QSignalSpy moves(&item, &ZTAbstractGraphicsItem::posChanged);
        stack.undo();
        QCOMPARE(moves.count(), 0);
    }

    void successiveMoves_stayTwoSteps()
    {
        ZTGraphicsRectItem item;
        QUndoStack stack;
        stack.push(new ZTItemPosCommand(&item, QPointF(0, 0), QPointF(5, 6)));
        stack.push(new ZTItemPosCommand(&item, QPointF(5, 6), QPointF(7, 8)));
        QCOMPARE(stack.count(), 2);
        QCOMPARE(stack.command(0)->id(), -1);
        stack.undo();
        QCOMPARE(item.pos(), QPointF(5, 6));
    }

    void parentCommand_ownsIt()
    {
        ZTGraphicsRectItem item;
        QUndoCommand parent;
        new ZTItemPosCommand(&item, QPointF(0, 0), QPointF(5, 6), &parent);
        QCOMPARE(parent.childCount(), 1);
        parent.redo();
        QCOMPARE(item.pos(), QPointF(5, 6));
    }

    void nullItem_isSafe()
    {
        testsupport::WarningGuard warnings;
        QUndoStack stack;
        stack.push(new ZTItemPosCommand(nullptr, QPointF(0, 0), QPointF(5, 6)));
        QCOMPARE(stack.command(0)->text(), QStringLiteral("Pos -1 5,6"));
        stack.undo();
        stack.redo();
    }

    void deletedItem_isSafe()
    {
        QUndoStack stack;
        auto item = std::make_unique<ZTGraphicsRectItem>();
        stack.push(new ZTItemPosCommand(item.get(), QPointF(0, 0), QPointF(5, 6)));
        item.reset();
        stack.undo();
        stack.redo();
        stack.undo();
    }
};

QTEST_MAIN(tst_ZTItemPosCommand)
#include "tst_ZTItemPosCommand.moc"
