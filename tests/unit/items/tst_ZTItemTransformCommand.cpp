#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

#include <memory>

namespace {

/** Counts how often a transform is given to it. */
class CountingItem : public ZTGraphicsRectItem
{
public:
    void setTransformParam(const QTransform &transform) override
    {
        ++calls;
        ZTGraphicsRectItem::setTransformParam(transform);
    }
    int calls = 0;
};

} // namespace

class tst_ZTItemTransformCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_namesTheShape()
    {
        ZTGraphicsRectItem item;
        item.getShapeBase()->setId(42);
        const ZTItemTransformCommand command(&item, QTransform(), QTransform(), nullptr);
        QCOMPARE(command.text(), QStringLiteral("Transform 42"));
        QCOMPARE(command.id(), -1);
    }

    void push_undo_redo_giveTheTransforms()
    {
        CountingItem item;
        const QTransform wide = QTransform::fromScale(2, 1);
        QUndoStack stack;
        stack.push(new ZTItemTransformCommand(&item, QTransform(), wide));
        QCOMPARE(item.getTransformParam(), wide);
        QCOMPARE(item.calls, 1);
        stack.undo();
        QVERIFY(item.getTransformParam().isIdentity());
        stack.redo();
        QCOMPARE(item.getTransformParam(), wide);
        stack.undo();
        QVERIFY(item.getTransformParam().isIdentity());
        QCOMPARE(item.calls, 4);
        QCOMPARE(stack.count(), 1);
    }

    void push_afterTheChange_repeatsNothing()
    {
        CountingItem item;
        item.scale(2, 1);
        QUndoStack stack;
        stack.push(new ZTItemTransformCommand(&item, QTransform(), item.getTransformParam()));
        QCOMPARE(item.calls, 0);
    }

    void undo_stateAlreadyReached_repeatsNothing()
    {
        CountingItem item;
        QUndoStack stack;
        stack.push(
            new ZTItemTransformCommand(&item, QTransform(), QTransform::fromTranslate(1, 0)));
        item.getTransformParam() = QTransform();
        item.calls = 0;
        stack.undo();
        QCOMPARE(item.calls, 0);
    }

    void newTransform_isTakenByValue()
    {
        CountingItem item;
        item.scale(2, 1);
        ZTItemTransformCommand command(&item, QTransform(), item.getTransformParam());
        command.undo();
        command.redo();
        QCOMPARE(item.getTransformParam(), QTransform::fromScale(2, 1));
    }

    void successiveChanges_stayTwoSteps()
    {
        CountingItem item;
        const QTransform wide = QTransform::fromScale(2, 1);
        QUndoStack stack;
        stack.push(new ZTItemTransformCommand(&item, QTransform(), wide));
        stack.push(new ZTItemTransformCommand(&item, wide, wide * wide));
        QCOMPARE(stack.count(), 2);
    }

    void nullOrDeletedItem_isSafe()
    {
        QUndoStack stack;
        stack.push(new ZTItemTransformCommand(nullptr, QTransform(), QTransform()));
        QCOMPARE(stack.command(0)->text(), QStringLiteral("Transform -1"));
        auto item = std::make_unique<CountingItem>();
        stack.push(
            new ZTItemTransformCommand(item.get(), QTransform(), QTransform::fromScale(2, 1)));
        item.reset();
        stack.undo();
        stack.undo();
        stack.redo();
        stack.redo();
    }
};

QTEST_MAIN(tst_ZTItemTransformCommand)
#include "tst_ZTItemTransformCommand.moc"
