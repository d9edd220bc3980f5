#include <support/SingletonGuard.h>

#include <hostkit/marks/MarkOrder.h>

#include <QtTest/QTest>

using hostkit::orderMarkGraph;

namespace {

/** An outline of two points that begins at a place; the pen tells objects apart in the test. */
ZTMarkObject outlineAt(double x, double y, int pen)
{
    ZTMarkObject object;
    object.penId = pen;
    object.lines = {QPolygonF(QVector<QPointF>{{x, y}, {x + 1.0, y}})};
    object.rect = QRectF(x, y, 1.0, 1.0);
    return object;
}

/** A hatch alone that begins at one place and ends at another. */
ZTMarkObject hatchFrom(const QPointF &start, const QPointF &end, int pen)
{
    ZTMarkObject object;
    object.penId = pen;
    object.fillLines = {QLineF(start, start), QLineF(end, end)};
    return object;
}

ZTMarkObject nothing(int pen)
{
    ZTMarkObject object;
    object.penId = pen;
    return object;
}

QVector<int> pensOf(const ZTMarkGraph &graph)
{
    QVector<int> pens;
    for (const ZTMarkObject &object : graph.objects)
        pens << object.penId;
    return pens;
}

} // namespace

class tst_MarkOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        graph = ZTMarkGraph();
    }
    void cleanup() { guard.reset(); }

    void outlines_standInTheOrderOfTheLibrary_data()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind <= 5; ++kind)
            QTest::addRow("%d", kind) << kind;
    }
    void outlines_standInTheOrderOfTheLibrary()
    {
        QFETCH(int, kind);
        sortBy(static_cast<EShapeSortType>(kind));
        for (int i = 0; i < 40; ++i)
            graph.objects << outlineAt(i * 7919 % 1000, i * 104729 % 1000, i);
        ZTMarkGraph expected = graph;
        ZTPointSort::getInstance()->markGraphSort(expected);
        orderMarkGraph(&graph);
        QCOMPARE(pensOf(graph), pensOf(expected));
    }

    void objectWithSeveralOutlines_isLeftAtTheStartOfItsLastOne()
    {
        sortBy(EShapeSortType::ShapeSortXFromMin);
        ZTMarkObject two = outlineAt(0, 0, 1);
        two.lines << QPolygonF(QVector<QPointF>{{100, 0}, {-500, 0}});
        graph.objects << outlineAt(20, 0, 2) << two << outlineAt(90, 0, 3);
        orderMarkGraph(&graph);
        QCOMPARE(pensOf(graph), (QVector<int>{1, 3, 2}));
    }

    void hatchesWithoutOutline_areAllKept()
    {
        sortBy(EShapeSortType::ShapeSortXFromMin);
        graph.objects << outlineAt(5, 0, 1) << hatchFrom({1, 0}, {2, 0}, 2)
                      << hatchFrom({9, 0}, {9, 0}, 3) << outlineAt(3, 0, 4);
        orderMarkGraph(&graph);
        QCOMPARE(pensOf(graph), (QVector<int>{2, 4, 1, 3}));
        QCOMPARE(graph.objects[0].fillLines.size(), 2);
        QVERIFY(graph.objects[0].lines.isEmpty());
    }

    void hatchOfTheTopmostShape_isOrderedToo()
    {
        sortBy(EShapeSortType::ShapeSortXFromMax);
        graph.objects << hatchFrom({1, 0}, {2, 0}, 1) << outlineAt(5, 0, 2);
        orderMarkGraph(&graph);
        QCOMPARE(pensOf(graph), (QVector<int>{2, 1}));
    }

    void objectsThatMarkNothing_comeLastAsTheyWere()
    {
        sortBy(EShapeSortType::ShapeSortXFromMin);
        ZTMarkObject emptyOutline;
        emptyOutline.penId = 3;
        emptyOutline.lines = {QPolygonF()};
        graph.objects << nothing(1) << outlineAt(5, 0, 2) << emptyOutline << nothing(4)
                      << outlineAt(1, 0, 5);
        orderMarkGraph(&graph);
        QCOMPARE(pensOf(graph), (QVector<int>{5, 2, 1, 3, 4}));
        QCOMPARE(graph.objects[3].lines.size(), 1);
    }

    void emptyOutlineAmongOthers_hidesNothing()
    {
        sortBy(EShapeSortType::ShapeSortXFromMin);
        ZTMarkObject half = outlineAt(7, 0, 1);
        half.lines.prepend(QPolygonF());
        half.lines.append(QPolygonF());
        graph.objects << half << outlineAt(3, 0, 2) << outlineAt(9, 0, 3);
        orderMarkGraph(&graph);
        QCOMPARE(pensOf(graph), (QVector<int>{2, 1, 3}));
        QCOMPARE(graph.objects[1].lines.size(), 3);
    }

    void pointsThatAreNoNumbers_loseNothing()
    {
        sortBy(EShapeSortType::ShapeSortNearest);
        graph.objects << outlineAt(qQNaN(), 0, 1) << outlineAt(qInf(), qInf(), 2)
                      << outlineAt(0, 0, 3) << outlineAt(1e300, -1e300, 4);
        orderMarkGraph(&graph);
        QVector<int> pens = pensOf(graph);
        std::sort(pens.begin(), pens.end());
        QCOMPARE(pens, (QVector<int>{1, 2, 3, 4}));
    }

    void samePens_areNoMatter()
    {
        sortBy(EShapeSortType::ShapeSortXFromMin);
        for (int i = 0; i < 5; ++i)
            graph.objects << outlineAt(10 - i, 0, 7);
        orderMarkGraph(&graph);
        QCOMPARE(graph.objects.first().rect.x(), 6.0);
        QCOMPARE(graph.objects.last().rect.x(), 10.0);
    }

    void emptyGraph_staysEmpty()
    {
        sortBy(EShapeSortType::ShapeSortNearest);
        orderMarkGraph(&graph);
        QVERIFY(graph.objects.isEmpty());
    }

private:
    static void sortBy(EShapeSortType kind) { ZTPointSort::getInstance()->setShapeMarkSort(kind); }

    QScopedPointer<testsupport::SingletonGuard> guard;
    ZTMarkGraph graph;
};

QTEST_GUILESS_MAIN(tst_MarkOrder)
#include "tst_MarkOrder.moc"
