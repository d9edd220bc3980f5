#include <studio/paths/PathOps.h>

#include <QtTest/QTest>

#include <cmath>

using studio::areasTogether;
using studio::pathsApart;
using studio::weldedAreas;
using vectorkit::OutlineOp;
using vectorkit::VectorPath;

namespace {

VectorPath square(double left, double top, double side)
{
    return VectorPath::polyline(
        {{left, top}, {left + side, top}, {left + side, top + side}, {left, top + side}}, true);
}

/** Area with holes taken off, by which way round the outlines run. */
double areaOf(const QVector<VectorPath> &paths)
{
    double twice = 0.0;
    for (const VectorPath &path : paths) {
        path.forEach([&](const VectorPath::Piece &piece) {
            twice += piece.from.x() * piece.to.y() - piece.to.x() * piece.from.y();
        });
    }
    return std::abs(twice) / 2.0;
}

} // namespace

class tst_PathOps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areasTogether_ofTwoSquares_data()
    {
        QTest::addColumn<int>("op");
        QTest::addColumn<double>("area");
        QTest::addColumn<int>("outlines");
        // 10 by 10 each, 5 by 5 of it in both.
        QTest::newRow("union") << int(OutlineOp::Union) << 175.0 << 1;
        QTest::newRow("difference") << int(OutlineOp::Difference) << 75.0 << 1;
        QTest::newRow("intersection") << int(OutlineOp::Intersection) << 25.0 << 1;
        QTest::newRow("exclusion") << int(OutlineOp::Exclusion) << 150.0 << 2;
    }
    void areasTogether_ofTwoSquares()
    {
        QFETCH(int, op);
        QFETCH(double, area);
        QFETCH(int, outlines);
        const QVector<VectorPath> together =
            areasTogether(OutlineOp(op), {{square(0, 0, 10)}, {square(5, 5, 10)}});
        QVERIFY(std::abs(areaOf(together) - area) < 1e-6);
        QCOMPARE(together.size(), outlines);
        for (const VectorPath &path : together)
            QVERIFY(path.isClosed());
    }

    void areasTogether_differenceOfThree_takesBothOff()
    {
        const QVector<VectorPath> left = areasTogether(
            OutlineOp::Difference, {{square(0, 0, 10)}, {square(0, 0, 2)}, {square(8, 8, 2)}});
        QVERIFY(std::abs(areaOf(left) - 92.0) < 1e-6);
    }

    void areasTogether_holesStayHoles()
    {
        // A frame: 100 less 36, and a square of 4 in its hole.
        const QVector<VectorPath> together = areasTogether(
            OutlineOp::Union, {{square(0, 0, 10), square(2, 2, 6)}, {square(4, 4, 2)}});
        QVERIFY(std::abs(areaOf(together) - 68.0) < 1e-6);
        QCOMPARE(together.size(), 3);
    }

    void areasTogether_ofCircles_areFewArcs()
    {
        // Two circles of 10 mm, 10 mm apart: they meet at (5, +-8.66).
        const QVector<VectorPath> both =
            areasTogether(OutlineOp::Union,
                          {{VectorPath::circle({0, 0}, 10)}, {VectorPath::circle({10, 0}, 10)}});
        QCOMPARE(both.size(), 1);
        QVERIFY2(both[0].pieceCount() <= 8, QByteArray::number(both[0].pieceCount()).constData());
        QVERIFY(both[0].isClosed());
        const QPolygonF points = both[0].flattened(0.001);
        for (const QPointF &point : points) {
            const double left = std::hypot(point.x(), point.y());
            const double right = std::hypot(point.x() - 10, point.y());
            QVERIFY(std::abs(std::min(left, right) - 10) < 0.005);
        }
    }

    void areasTogether_apart_haveNothingInCommon()
    {
        QVERIFY(areasTogether(OutlineOp::Intersection, {{square(0, 0, 1)}, {square(5, 5, 1)}})
                    .isEmpty());
    }

    void weldedAreas_holeDrawnTwice_isOneHole()
    {
        const QVector<VectorPath> welded =
            weldedAreas({square(0, 0, 10), square(3, 3, 4), square(3, 3, 4)});
        QCOMPARE(welded.size(), 2);
        QVERIFY(std::abs(areaOf(welded) - 84.0) < 1e-6);
    }

    void weldedAreas_overlap_isFilled()
    {
        const QVector<VectorPath> welded = weldedAreas({square(0, 0, 10), square(5, 0, 10)});
        QCOMPARE(welded.size(), 1);
        QVERIFY(std::abs(areaOf(welded) - 150.0) < 1e-6);
    }

    void pathsApart_keepsHolesWithTheirOutline()
    {
        const VectorPath line = VectorPath::polyline({{50, 0}, {60, 0}});
        const auto parts = pathsApart({square(0, 0, 10), line, square(3, 3, 4), square(20, 0, 5)});
        QCOMPARE(parts.size(), 3);
        QCOMPARE(parts[0], (QVector<VectorPath>{square(0, 0, 10), square(3, 3, 4)}));
        QCOMPARE(parts[1], QVector<VectorPath>{square(20, 0, 5)});
        QCOMPARE(parts[2], QVector<VectorPath>{line});
    }

    void pathsApart_oneOutlineWithItsHole_comesApartToo()
    {
        const auto parts = pathsApart({square(0, 0, 10), square(3, 3, 4)});
        QCOMPARE(parts.size(), 2);
        QCOMPARE(pathsApart(parts[0]).size(), 1);
        QVERIFY(pathsApart({}).isEmpty());
    }
};

QTEST_APPLESS_MAIN(tst_PathOps)
#include "tst_PathOps.moc"
