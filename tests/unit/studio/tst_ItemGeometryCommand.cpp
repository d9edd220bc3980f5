#include "StudioTest.h"

#include <studio/commands/ItemGeometryCommand.h>

#include <QtTest/QTest>

#include <cmath>

using studio::MirrorCommand;
using studio::RotateCommand;
using studio::ShapeItem;
using studio::ShapeItems;

class tst_ItemGeometryCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void mirror_twoShapes_swapsTheirSides()
    {
        ShapeItem *left = test->addRect(0, 0);
        ShapeItem *right = test->addRect(100, 20);
        const double side = left->boundingRect().width();
        test->select({left, right});
        push<MirrorCommand>(MirrorCommand::LeftToRight);
        QCOMPARE(studio::sceneBox(*left), QRectF(100, 0, side, side));
        QCOMPARE(studio::sceneBox(*right), QRectF(0, 20, side, side));
        QCOMPARE(stack()->count(), 1);
    }

    void mirror_topToBottom_swapsUpAndDown()
    {
        ShapeItem *upper = test->addRect(0, 0);
        ShapeItem *lower = test->addRect(30, 80);
        const double side = upper->boundingRect().height();
        test->select({upper, lower});
        push<MirrorCommand>(MirrorCommand::TopToBottom);
        QCOMPARE(studio::sceneBox(*upper), QRectF(0, 80, side, side));
        QCOMPARE(studio::sceneBox(*lower), QRectF(30, 0, side, side));
    }

    void mirror_flatShape_isUndoneToTheSignOfItsZero()
    {
        ShapeItem *flat = test->addRect(0, 0);
        flat->setTransformParam(QTransform::fromScale(2.0, 0.0));
        test->select({flat});
        push<MirrorCommand>(MirrorCommand::TopToBottom);
        QVERIFY(std::signbit(flat->getTransformParam().m22())); // 0 times -1
        stack()->undo();
        QCOMPARE(flat->getTransformParam().m22(), 0.0);
        QVERIFY(!std::signbit(flat->getTransformParam().m22()));
        stack()->redo();
        QVERIFY(std::signbit(flat->getTransformParam().m22()));
    }

    void rotate_oneShape_turnsAboutItsMiddle()
    {
        ShapeItem *line = test->add(ShapeType::Line, 10, 10);
        const QRectF before = studio::sceneBox(*line);
        test->select({line});
        push<RotateCommand>(90.0);
        const QRectF after = studio::sceneBox(*line);
        QVERIFY(QLineF(after.center(), before.center()).length() < 1e-9);
        QVERIFY(qAbs(after.width() - before.height()) < 1e-9);
        QVERIFY(qAbs(after.height() - before.width()) < 1e-9);
    }

    void undoAndRedo_areExact_data()
    {
        QTest::addColumn<int>("edit");
        QTest::newRow("mirror left to right") << 1;
        QTest::newRow("mirror top to bottom") << 2;
        QTest::newRow("rotate by a third") << 3;
    }

    void undoAndRedo_areExact()
    {
        QFETCH(int, edit);
        const ShapeItems items{test->addRect(0.1, 0.2), test->add(ShapeType::Ellipse, 33.3, 7.7),
                               test->add(ShapeType::Polygon, 11.1, 70.7)};
        items[1]->scale(1.3, 0.7);
        test->select(items);
        const DrawingSnapshot before = test->snapshot();
        if (edit == 3)
            push<RotateCommand>(100.0 / 3.0);
        else
            push<MirrorCommand>(static_cast<MirrorCommand::Kind>(edit));
        const DrawingSnapshot after = test->snapshot();
        QVERIFY(before != after);
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
        // Another selection does not matter to a step that was taken before.
        test->select({items[2]});
        stack()->redo();
        COMPARE_DRAWINGS(test->snapshot(), after);
    }

    // A 0 and a negative one are equal, and two numbers in a file.
    void undo_givesBackTheSignOfNothing()
    {
        ShapeItem *item = test->addRect(0, 0);
        test->select({item});
        push<MirrorCommand>(MirrorCommand::TopToBottom);
        // As others may leave it: equal to what it was before.
        item->getTransformParam().setMatrix(1, 0, 0, 0, 1, 0, 0, -0.0, 1);
        stack()->undo();
        QVERIFY(!std::signbit(item->getTransformParam().dy()));
        QCOMPARE(item->getTransformParam(), QTransform());
    }

    // Qt takes places within some 1e-12 for the same.
    void undo_givesBackThePlaceToTheLastBit()
    {
        ShapeItem *item = test->addRect(-466.25, 0);
        test->select({item});
        push<MirrorCommand>(MirrorCommand::TopToBottom);
        item->setPos(0, 50);
        item->setPos(-466.25, -2.3e-13);
        stack()->undo();
        QVERIFY(item->pos().y() == 0.0);
    }

    void frame_fitsAfterEachStep()
    {
        const ShapeItems items{test->addRect(0, 0), test->addRect(70, 0)};
        test->select(items);
        push<RotateCommand>(30.0);
        QVERIFY(frameFits(items));
        stack()->undo();
        QVERIFY(frameFits(items));
        stack()->redo();
        QVERIFY(frameFits(items));
    }

    void shapesDeletedByOthers_arePassedOver()
    {
        ShapeItem *doomed = test->addRect(0, 0);
        ShapeItem *kept = test->addRect(50, 0);
        test->select({doomed, kept});
        push<RotateCommand>(45.0);
        const QTransform turned = kept->getTransformParam();
        delete doomed;
        stack()->undo();
        QVERIFY(kept->getTransformParam().isIdentity());
        stack()->redo();
        QCOMPARE(kept->getTransformParam(), turned);
    }

    void withoutSelection_nothingHappens()
    {
        test->addRect(0, 0);
        const DrawingSnapshot before = test->snapshot();
        push<RotateCommand>(45.0);
        push<MirrorCommand>(MirrorCommand::LeftToRight);
        COMPARE_DRAWINGS(test->snapshot(), before);
        stack()->undo();
        stack()->undo();
        COMPARE_DRAWINGS(test->snapshot(), before);
    }

private:
    template <class EditCommand, class Argument>
    void push(Argument argument)
    {
        stack()->push(new EditCommand(test->document->scene(), argument, QStringLiteral("edit")));
    }

    bool frameFits(const ShapeItems &items) const
    {
        const ZTGraphicsResizeItem *frame = test->document->scene()->getGraphicsResizeItem();
        const QRectF frameBox = frame->rect().translated(frame->pos());
        const QRectF box = studio::sceneBox(items);
        return qAbs(frameBox.left() - box.left()) < 1e-9 &&
               qAbs(frameBox.top() - box.top()) < 1e-9 &&
               qAbs(frameBox.width() - box.width()) < 1e-9 &&
               qAbs(frameBox.height() - box.height()) < 1e-9;
    }

    QUndoStack *stack() const { return test->document->undoStack(); }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_ItemGeometryCommand)
#include "tst_ItemGeometryCommand.moc"
