#include <hostkit/marks/MarkPicture_p.h>

#include <QtTest/QTest>

#include <limits>

using hostkit::layOutMarkPicture;

namespace {

ZTMarkGraph graphOf(const QVector<QPointF> &points)
{
    ZTMarkObject object;
    object.lines = {QPolygonF(points)};
    object.rect = object.lines[0].boundingRect();
    ZTMarkGraph graph;
    graph.objects = {object};
    return graph;
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_MarkPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void page_isTheGraphInMillimetresWithAMargin()
    {
        const hostkit::MarkPicture picture =
            layOutMarkPicture(graphOf({{0, 100}, {500, 100}, {500, -100}}), {5.0});
        QCOMPARE(picture.pageMm, QRectF(-4, -24, 108, 48)); // 100 x 40 and 4 on each side
        QVERIFY(picture.hasStart);
        QCOMPARE(picture.startMm, QPointF(0, 20));
    }

    void page_neverEmpty()
    {
        for (const ZTMarkGraph &graph : {ZTMarkGraph(), graphOf({{7, 7}})}) {
            const QRectF pageMm = layOutMarkPicture(graph, {1.0}).pageMm;
            QVERIFY(pageMm.width() > 0.0 && pageMm.height() > 0.0);
        }
        QVERIFY(!layOutMarkPicture(ZTMarkGraph(), {1.0}).hasStart);
    }

    void hatchAlone_startsWhereItsFirstLineDoes()
    {
        ZTMarkGraph graph;
        graph.objects.resize(1);
        graph.objects[0].fillLines = {QLineF(3, 4, 13, 4)};
        const hostkit::MarkPicture picture = layOutMarkPicture(graph, {1.0});
        QCOMPARE(picture.startMm, QPointF(3, 4));
        QCOMPARE(picture.pageMm.width(), 10.8);
    }

    void coordinatesThatAreNone_takeNoPartInThePage()
    {
        const hostkit::MarkPicture picture = layOutMarkPicture(
            graphOf({{kNaN, 0}, {0, 0}, {std::numeric_limits<double>::infinity(), 5}, {10, 0}}),
            {1.0});
        QCOMPARE(picture.pageMm, QRectF(-0.4, -0.4, 10.8, 0.8));
        QCOMPARE(picture.startMm, QPointF(0, 0));
        QVERIFY(!hostkit::canShow(QPointF(0, kNaN)));
    }

    void manySmallObjects_areDrawnFinerThanOneLargeOne()
    {
        ZTMarkGraph one = graphOf({{0, 0}, {100, 0}});
        ZTMarkGraph many;
        many.objects = {graphOf({{0, 0}, {4, 0}}).objects[0],
                        graphOf({{96, 0}, {100, 0}}).objects[0]};
        QCOMPARE(layOutMarkPicture(one, {1.0}).outline.widthMm, 0.2);
        QCOMPARE(layOutMarkPicture(many, {1.0}).outline.widthMm, 0.04); // of sqrt(100 * 4)
    }
};

QTEST_GUILESS_MAIN(tst_MarkPicture)
#include "tst_MarkPicture.moc"
