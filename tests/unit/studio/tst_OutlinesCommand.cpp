#include "StudioTest.h"

#include <studio/commands/OutlinesCommand.h>

#include <hostkit/items/GraphicItems.h>

#include <QtTest/QTest>

using studio::OutlinesCommand;
using studio::ShapeItem;
using vectorkit::VectorPath;

class tst_OutlinesCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void undoAndRedo_areExact()
    {
        ShapeItem *item = addTriangle();
        item->setTransformParam(QTransform().rotate(30));
        item->setPenId(5);
        const DrawingSnapshot before = test->snapshot();
        push({{item, {VectorPath::polyline({{1, 1}, {7, 1}, {7, 3}, {1, 3}}, true)}}});
        const DrawingSnapshot after = test->snapshot();
        QVERIFY(before != after);
        const QVector<VectorPath> shown = hostkit::outlinesOf(*item);
        QCOMPARE(shown.size(), 1);
        const QRectF box = shown.first().boundsMm();
        QVERIFY(std::abs(box.left() - 1) + std::abs(box.right() - 7) < 1e-9);
        QVERIFY(std::abs(box.top() - 1) + std::abs(box.bottom() - 3) < 1e-9);
        QCOMPARE(item->getPenId(), 5);
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
        QCOMPARE(stack()->count(), 1);
        QCOMPARE(stack()->text(0), QStringLiteral("Edit"));
    }

    void drawingOfAFile_isItNoMore_untilUndone()
    {
        ShapeItem *item = addTriangle();
        ZTVecGraph *graphic = hostkit::graphicOf(*item);
        graphic->setDrawing(graphic->getDrawing(), QStringLiteral("plate.plt"));
        push({{item, {VectorPath::polyline({{0, 0}, {1, 1}})}}});
        QCOMPARE(graphic->getImagePath(), hostkit::kNoDrawingFile);
        stack()->undo();
        QCOMPARE(graphic->getImagePath(), QStringLiteral("plate.plt"));
    }

    void shapesWithoutADrawing_arePassedOver()
    {
        ShapeItem *rect = test->addRect(0, 0);
        const DrawingSnapshot before = test->snapshot();
        push({{rect, {VectorPath::polyline({{0, 0}, {1, 1}})}}, {nullptr, {}}});
        COMPARE_UNDO_AND_REDO(*test->document, before, before);
    }

    void shapesDeletedByOthers_arePassedOver()
    {
        ShapeItem *doomed = addTriangle();
        ShapeItem *kept = addTriangle();
        const QPainterPath first = hostkit::graphicOf(*kept)->getDrawing();
        push({{doomed, {VectorPath::polyline({{0, 0}, {1, 1}})}},
              {kept, {VectorPath::polyline({{0, 0}, {2, 2}})}}});
        delete doomed;
        stack()->undo();
        QCOMPARE(hostkit::graphicOf(*kept)->getDrawing(), first);
        stack()->redo();
        QVERIFY(hostkit::graphicOf(*kept)->getDrawing() != first);
    }

private:
    ShapeItem *addTriangle()
    {
        return hostkit::addGraphic(*test->document,
                                   {VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}}, true)});
    }

    QUndoStack *stack() { return test->document->undoStack(); }

    void push(const QVector<studio::OutlineChange> &changes)
    {
        stack()->push(new OutlinesCommand(changes, QStringLiteral("Edit")));
    }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_OutlinesCommand)
#include "tst_OutlinesCommand.moc"
