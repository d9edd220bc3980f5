#include <vectorkit/clean/OutlineOps.h>

#include <QtGui/QPolygonF>
#include <QtTest/QTest>

using vectorkit::combinedOutlines;
using vectorkit::OffsetCorner;
using vectorkit::offsetOutlines;
using vectorkit::OutlineOp;
using vectorkit::VectorPath;
using vectorkit::weldedOutlines;

namespace {

VectorPath square(double x, double y, double side)
{
    return VectorPath::polyline({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}}, true);
}

/** Signed: counter-clockwise on the screen, where y runs down, is positive. */
double areaOf(const VectorPath &path)
{
    const QPolygonF polygon = path.flattened(0.001);
    double twice = 0.0;
    for (int i = 1; i < polygon.size(); ++i)
        twice += polygon[i].x() * polygon[i - 1].y() - polygon[i - 1].x() * polygon[i].y();
    return twice / 2.0;
}

double areaOf(const QVector<VectorPath> &paths)
{
    double area = 0.0;
    for (const VectorPath &path : paths)
        area += areaOf(path);
    return area;
}

} // namespace

class tst_OutlineOps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void combined_twoSquares_data()
    {
        QTest::addColumn<int>("op");
        QTest::addColumn<double>("area");
        // Sides of 10, laid over each other by 5 by 5.
        QTest::newRow("union") << int(OutlineOp::Union) << 175.0;
        QTest::newRow("difference") << int(OutlineOp::Difference) << 75.0;
        QTest::newRow("intersection") << int(OutlineOp::Intersection) << 25.0;
        QTest::newRow("exclusion") << int(OutlineOp::Exclusion) << 150.0;
    }

    void combined_twoSquares()
    {
        QFETCH(int, op);
        QFETCH(double, area);
        const QVector<VectorPath> result = combinedOutlines(
            OutlineOp(op), {square(0, 0, 10)}, {square(5, 5, 10)}, Qt::OddEvenFill, 0.01);
        QVERIFY(qAbs(areaOf(result) - area) < 1e-3);
        for (const VectorPath &path : result)
            QVERIFY(path.isClosed());
    }

    void combined_apart_givesNothing()
    {
        QVERIFY(combinedOutlines(OutlineOp::Intersection, {square(0, 0, 1)}, {square(5, 5, 1)},
                                 Qt::OddEvenFill, 0.01)
                    .isEmpty());
    }

    void welded_holesRunTheOtherWay()
    {
        const QVector<VectorPath> welded =
            weldedOutlines({square(0, 0, 10), square(2, 2, 2)}, Qt::OddEvenFill, 0.01);
        QCOMPARE(welded.size(), 2);
        const double a = areaOf(welded[0]);
        const double b = areaOf(welded[1]);
        QVERIFY(qAbs(qMax(a, b) - 100.0) < 1e-3);
        QVERIFY(qAbs(qMin(a, b) + 4.0) < 1e-3);
    }

    void welded_byWinding_fillsWhatRunsTheSameWay()
    {
        const QVector<VectorPath> welded =
            weldedOutlines({square(0, 0, 10), square(2, 2, 2)}, Qt::WindingFill, 0.01);
        QCOMPARE(welded.size(), 1);
    }

    void welded_overlappingOutlines_areOne()
    {
        QCOMPARE(weldedOutlines({square(0, 0, 10), square(5, 5, 10)}, Qt::WindingFill, 0.01).size(),
                 1);
    }

    void offset_squareGrowsAndShrinks()
    {
        const auto offset = [](double distance, OffsetCorner corner) {
            return areaOf(
                offsetOutlines({square(0, 0, 10)}, Qt::OddEvenFill, distance, corner, 0.001));
        };
        QVERIFY(qAbs(offset(1.0, OffsetCorner::Miter) - 144.0) < 1e-2);
        QVERIFY(qAbs(offset(1.0, OffsetCorner::Round) - (140.0 + M_PI)) < 2e-2);
        QVERIFY(qAbs(offset(-1.0, OffsetCorner::Miter) - 64.0) < 1e-2);
        QCOMPARE(offset(-6.0, OffsetCorner::Round), 0.0);
    }

    void curves_areFlattenedWithinTheTolerance()
    {
        const double area = areaOf(
            weldedOutlines({VectorPath::circle(QPointF(0, 0), 10.0)}, Qt::OddEvenFill, 1e-3));
        QVERIFY(area < 100.0 * M_PI && area > 100.0 * M_PI - 20.0 * M_PI * 1e-3);
    }

    void farAndStrange_harmNothing()
    {
        QVERIFY(weldedOutlines({}, Qt::OddEvenFill, 0.01).isEmpty());
        QVERIFY(weldedOutlines({VectorPath(), VectorPath::polyline({{0, 0}, {1, 1}})},
                               Qt::OddEvenFill, 0.01)
                    .isEmpty());
        weldedOutlines({square(-1e9, -1e9, 2e9)}, Qt::OddEvenFill, 0.01);
        offsetOutlines({square(0, 0, 1e9)}, Qt::OddEvenFill, 1e9, OffsetCorner::Miter, 0.01);
    }
};

QTEST_GUILESS_MAIN(tst_OutlineOps)
#include "tst_OutlineOps.moc"
