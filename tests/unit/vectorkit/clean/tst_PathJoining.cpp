#include <vectorkit/clean/PathJoining.h>

#include <QtTest/QTest>

#include <random>

using vectorkit::joinedPaths;
using vectorkit::JoinFigures;
using vectorkit::VectorPath;

namespace {

VectorPath line(const QPointF &from, const QPointF &to) { return VectorPath::polyline({from, to}); }

} // namespace

class tst_PathJoining : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void looseLines_becomeOneClosedOutline()
    {
        // A square of four lines, out of order, two of them run the wrong way.
        JoinFigures figures;
        const QVector<VectorPath> joined =
            joinedPaths({line({0, 0}, {10, 0}), line({0, 10}, {10, 10}), line({10, 10}, {10, 0}),
                         line({0, 0}, {0, 10})},
                        0.0, &figures);
        QCOMPARE(joined.size(), 1);
        QVERIFY(joined[0].isClosed());
        QCOMPARE(joined[0].pieceCount(), 4);
        QCOMPARE(joined[0].lengthMm(), 40.0);
        QCOMPARE(figures.joined, 3);
        QCOMPARE(figures.closed, 1);
    }

    void ends_withinTheDistance_becomeOnePoint()
    {
        const QVector<VectorPath> paths{line({0, 0}, {10, 0}), line({10.04, 0}, {20, 0})};
        QCOMPARE(joinedPaths(paths, 0.0).size(), 2);
        QCOMPARE(joinedPaths(paths, 0.03).size(), 2);
        const QVector<VectorPath> joined = joinedPaths(paths, 0.05);
        QCOMPARE(joined.size(), 1);
        QCOMPARE(joined[0].polylinePoints(), (QVector<QPointF>{{0, 0}, {10.04, 0}, {20, 0}}));
    }

    void ends_thatMeetExactly_goFirst()
    {
        // The first line's end is near the second one's, which has an exact partner.
        const QVector<VectorPath> joined = joinedPaths(
            {line({0, 0}, {10, 0}), line({10.01, 0}, {20, 0}), line({10.01, 0}, {10.01, 5})}, 0.05);
        QCOMPARE(joined.size(), 2);
        QCOMPARE(joined[0].pieceCount(), 1);
        QCOMPARE(joined[1].pieceCount(), 2);
    }

    void outline_almostClosed_isClosed()
    {
        JoinFigures figures;
        const QVector<VectorPath> joined = joinedPaths(
            {VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}, {0.02, 0}})}, 0.05, &figures);
        QVERIFY(joined[0].isClosed());
        QCOMPARE(joined[0].end(), QPointF(0, 0));
        QCOMPARE(joined[0].pieceCount(), 3);
        QCOMPARE(figures.closed, 1);
    }

    void lineAndItsWayBack_areNoOutline()
    {
        const QVector<VectorPath> joined =
            joinedPaths({line({0, 0}, {10, 0}), line({10, 0}, {0, 0})}, 0.0);
        QCOMPARE(joined.size(), 1);
        QVERIFY(!joined[0].isClosed());
    }

    void arcs_stayExact_andGetAShortLine()
    {
        VectorPath arc(QPointF(1, 0));
        arc.arcAbout(QPointF(0, 0), 180.0);
        const QVector<VectorPath> joined =
            joinedPaths({arc, line(arc.end() + QPointF(0, 0.01), {-5, 5})}, 0.05);
        QCOMPARE(joined.size(), 1);
        QCOMPARE(joined[0].pieceCount(), 3);
        QVERIFY(qAbs(joined[0].lengthMm() - (M_PI + 0.01 + std::hypot(-4.0, 5.0 - 0.01))) < 1e-9);
    }

    void closedAndEmptyPaths_areLeftAlone()
    {
        const VectorPath circle = VectorPath::circle(QPointF(0, 0), 1.0);
        const QVector<VectorPath> joined =
            joinedPaths({VectorPath(), circle, line({1, 0}, {2, 0})}, 0.1);
        QCOMPARE(joined.size(), 2);
        QVERIFY(joined[0] == circle);
    }

    void shuffledOutlines_comeBackWhole()
    {
        std::mt19937 random(1);
        QVector<VectorPath> pieces;
        double length = 0.0;
        for (int outline = 0; outline < 200; ++outline) {
            QVector<QPointF> points;
            for (int i = 0; i < 8; ++i)
                points.append(QPointF(outline % 20 * 10 + std::cos(i * M_PI / 4),
                                      outline / 20 * 10 + std::sin(i * M_PI / 4)));
            for (int i = 0; i < 8; ++i) {
                const VectorPath piece = line(points[i], points[(i + 1) % 8]);
                length += piece.lengthMm();
                pieces.append(random() % 2 == 0 ? piece : piece.reversed());
            }
        }
        std::shuffle(pieces.begin(), pieces.end(), random);
        double joinedLength = 0.0;
        const QVector<VectorPath> joined = joinedPaths(pieces, 0.001);
        QCOMPARE(joined.size(), 200);
        for (const VectorPath &path : joined) {
            QVERIFY(path.isClosed());
            QCOMPARE(path.pieceCount(), 8);
            joinedLength += path.lengthMm();
        }
        QVERIFY(qAbs(joinedLength - length) < 1e-9 * length);
    }
};

QTEST_GUILESS_MAIN(tst_PathJoining)
#include "tst_PathJoining.moc"
