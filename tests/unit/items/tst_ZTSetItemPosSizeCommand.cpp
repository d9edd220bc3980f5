#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

#include <memory>

class tst_ZTSetItemPosSizeCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kept_undoAndRedoChangeNothing()
    {
        ZTGraphicsScene scene;
        ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem();
        const QRectF rect = frame->rect();
        const QPointF pos = frame->pos();
        QUndoStack stack;
        stack.push(new ZTSetItemPosSizeCommand(frame, &scene, QRect(1, 2, 3, 4), nullptr));
        QCOMPARE(stack.command(0)->text(), QStringLiteral("ZTSetItemPosSizeCommand"));
        stack.undo();
        stack.redo();
        QCOMPARE(frame->rect(), rect);
        QCOMPARE(frame->pos(), pos);
        QCOMPARE(stack.count(), 1);
    }

    void idIsZero_andNothingMerges()
    {
        ZTSetItemPosSizeCommand command(nullptr, nullptr, QRect());
        const ZTSetItemPosSizeCommand other(nullptr, nullptr, QRect());
        QCOMPARE(command.id(), 0);
        QVERIFY(!command.mergeWith(&other));
        QUndoStack stack;
        stack.push(new ZTSetItemPosSizeCommand(nullptr, nullptr, QRect()));
        stack.push(new ZTSetItemPosSizeCommand(nullptr, nullptr, QRect()));
        QCOMPARE(stack.count(), 2);
    }

    void deletedScene_isSafe()
    {
        auto scene = std::make_unique<ZTGraphicsScene>();
        ZTSetItemPosSizeCommand command(scene->getGraphicsResizeItem(), scene.get(), QRect());
        scene.reset();
        command.undo();
        command.redo();
    }
};

QTEST_MAIN(tst_ZTSetItemPosSizeCommand)
#include "tst_ZTSetItemPosSizeCommand.moc"
