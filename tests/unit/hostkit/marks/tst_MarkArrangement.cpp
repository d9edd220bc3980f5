#include "support/SingletonGuard.h"

#include <hostkit/marks/MarkArrangement.h>

#include <QtTest/QTest>

using hostkit::MarkJobOptions;
using hostkit::MarkJobResult;
using hostkit::MarkUnits;

namespace {

/** A line from (0, 0) to (10, 0) and, far to the right, one with a hatch line below it. */
ZTMarkGraph twoObjects()
{
    ZTMarkObject near;
    near.penId = 1;
    near.lines.append(QPolygonF(QVector<QPointF>{{0, 0}, {10, 0}}));
    near.rect = QRectF(0, 0, 10, 0);
    ZTMarkObject far;
    far.penId = 2;
    far.lines.append(QPolygonF(QVector<QPointF>{{100, 0}, {110, 0}}));
    far.fillLines.append(QLineF(100, 5, 110, 5));
    far.rect = QRectF(100, 0, 10, 5);
    ZTMarkGraph graph;
    graph.objects = {far, near};
    graph.rect = near.rect | far.rect;
    return graph;
}

} // namespace

class tst_MarkArrangement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<testsupport::SingletonGuard>(); }
    void cleanup() { m_guard.reset(); }

    void enlarge_multipliesEverything()
    {
        ZTMarkGraph graph = twoObjects();
        hostkit::enlargeMarkGraph(&graph, 2.0);
        QCOMPARE(graph.objects[0].lines[0], QPolygonF(QVector<QPointF>{{200, 0}, {220, 0}}));
        QCOMPARE(graph.objects[0].fillLines[0], QLineF(200, 10, 220, 10));
        QCOMPARE(graph.objects[0].rect, QRectF(200, 0, 20, 10));
        QCOMPARE(graph.rect, QRectF(0, 0, 220, 10));
    }

    void repeat_goesRowByRow()
    {
        ZTMarkGraph graph = twoObjects();
        hostkit::repeatMarkGraph(&graph, 2, 2, QSizeF(1000, 50));
        QCOMPARE(graph.objects.size(), 8);
        // The second copy stands to the right of the first, the third below it.
        QCOMPARE(graph.objects[3].lines[0], QPolygonF(QVector<QPointF>{{1000, 0}, {1010, 0}}));
        QCOMPARE(graph.objects[4].fillLines[0], QLineF(100, 55, 110, 55));
        QCOMPARE(graph.objects[7].rect, QRectF(1000, 50, 10, 0));
        QCOMPARE(graph.objects[7].penId, 1);
        QCOMPARE(graph.rect, QRectF(0, 0, 1110, 55));
    }

    void repeat_once_changesNothing()
    {
        ZTMarkGraph graph = twoObjects();
        hostkit::repeatMarkGraph(&graph, 1, 1, QSizeF(1000, 50));
        QCOMPARE(graph.objects.size(), 2);
        QCOMPARE(graph.rect, twoObjects().rect);
    }

    void arrange_ordersAndMeasures()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortYFromMax);
        MarkJobOptions options;
        options.order = EShapeSortType::ShapeSortXFromMin;
        MarkJobResult result;
        hostkit::arrangeMarkGraph(twoObjects(), MarkUnits{1.0}, options, &result);
        QCOMPARE(result.graph.objects[0].penId, 1);
        // As given: from (110, 0) to the hatch line at (100, 5), from (110, 5) to (0, 0).
        QCOMPARE(result.before.jumpMm, std::hypot(10, 5) + std::hypot(110, 5));
        QCOMPARE(result.after.jumpMm, 90.0 + std::hypot(10, 5));
        QCOMPARE(result.after.markMm, 30.0);
        QVERIFY(ZTPointSort::getInstance()->getShapeMarkSort() ==
                EShapeSortType::ShapeSortYFromMax);
    }

    void arrange_withoutOutlines_ordersByThemStill()
    {
        MarkJobOptions options;
        options.outline = false;
        options.order = EShapeSortType::ShapeSortXFromMin;
        MarkJobResult result;
        hostkit::arrangeMarkGraph(twoObjects(), MarkUnits{1.0}, options, &result);
        QCOMPARE(result.graph.objects[0].penId, 1);
        QVERIFY(result.graph.objects[0].lines.isEmpty());
        QVERIFY(result.graph.objects[1].lines.isEmpty());
        QCOMPARE(result.before.markMm, 10.0);
        QCOMPARE(result.after.markMm, 10.0);
        QCOMPARE(result.after.polylines, qint64(0));
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> m_guard;
};

QTEST_MAIN(tst_MarkArrangement)
#include "tst_MarkArrangement.moc"
