#include <hostkit/marks/MarkPathMeasure.h>

#include <QtTest/QTest>

using hostkit::measureMarkPath;

namespace {

QPolygonF polygon(const QVector<QPointF> &points) { return QPolygonF(points); }

} // namespace

class tst_MarkPathMeasure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyGraph_measuresNothing()
    {
        const hostkit::MarkPathMeasure measure = measureMarkPath(ZTMarkGraph(), {500.0});
        QCOMPARE(measure.objects, 0);
        QCOMPARE(measure.polylines, 0);
        QCOMPARE(measure.hatchSegments, 0);
        QVERIFY(measure.markMm == 0.0);
        QVERIFY(measure.jumpMm == 0.0);
    }

    void graph_countsAndLengthsInMillimetres()
    {
        ZTMarkObject first; // marks 3 + 4, jumps 5 back, marks 10
        first.lines = {polygon({{0, 0}, {3, 0}, {3, 4}})};
        first.fillLines = {QLineF(0, 0, 10, 0)};
        ZTMarkObject second; // reached over 6 and 8, marks a dot
        second.lines = {polygon({{16, 8}}), QPolygonF()};
        ZTMarkGraph graph;
        graph.objects = {first, second, ZTMarkObject()};
        const hostkit::MarkPathMeasure measure = measureMarkPath(graph, {2.0});
        QCOMPARE(measure.objects, 3);
        QCOMPARE(measure.polylines, 2);
        QCOMPARE(measure.hatchSegments, 1);
        QCOMPARE(measure.markMm, 8.5);
        QCOMPARE(measure.jumpMm, 7.5);
    }

    void order_changesJumpsAndNotMarks()
    {
        ZTMarkObject near;
        near.lines = {polygon({{0, 0}, {1, 0}})};
        ZTMarkObject middle;
        middle.lines = {polygon({{2, 0}, {3, 0}})};
        ZTMarkObject far;
        far.lines = {polygon({{4, 0}, {5, 0}})};
        ZTMarkGraph ordered;
        ordered.objects = {near, middle, far};
        ZTMarkGraph mixed;
        mixed.objects = {middle, near, far};
        QCOMPARE(measureMarkPath(ordered, {1.0}).jumpMm, 2.0);
        QCOMPARE(measureMarkPath(mixed, {1.0}).jumpMm, 6.0);
        QCOMPARE(measureMarkPath(mixed, {1.0}).markMm, 3.0);
    }
};

QTEST_GUILESS_MAIN(tst_MarkPathMeasure)
#include "tst_MarkPathMeasure.moc"
