#include <vectorkit/clean/PathDoubles.h>

#include <QtTest/QTest>

#include <random>

using vectorkit::DoubleFigures;
using vectorkit::VectorPath;
using vectorkit::withoutDoubles;
using vectorkit::withoutZeroLength;

namespace {

VectorPath line(const QPointF &from, const QPointF &to) { return VectorPath::polyline({from, to}); }

double lengthOf(const QVector<VectorPath> &paths)
{
    double length = 0.0;
    for (const VectorPath &path : paths)
        length += path.lengthMm();
    return length;
}

} // namespace

class tst_PathDoubles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void zeroLength_piecesAndDots_go()
    {
        DoubleFigures figures;
        const QVector<VectorPath> kept = withoutZeroLength(
            {line({1, 1}, {1, 1}), VectorPath::polyline({{0, 0}, {0, 0}, {5, 0}, {5, 0}, {5, 5}}),
             VectorPath::circle(QPointF(0, 0), 1.0)},
            0.0, &figures);
        QCOMPARE(figures.zeroLength, 3);
        QCOMPARE(kept.size(), 2);
        QCOMPARE(kept[0].polylinePoints(), (QVector<QPointF>{{0, 0}, {5, 0}, {5, 5}}));
        QVERIFY(kept[1].isClosed());
    }

    void lineTwice_eitherWayRound_staysOnce()
    {
        DoubleFigures figures;
        const QVector<VectorPath> kept =
            withoutDoubles({line({0, 0}, {10, 0}), line({0, 0}, {10, 0}), line({10, 0}, {0, 0}),
                            line({0, 1}, {10, 1})},
                           0.01, &figures);
        QCOMPARE(kept.size(), 2);
        QCOMPARE(figures.doubled, 2);
        QCOMPARE(figures.doubledMm, 20.0);
    }

    void lineOnALongerOne_goes()
    {
        const QVector<VectorPath> kept =
            withoutDoubles({line({2, 2}, {4, 4}), line({0, 0}, {10, 10})}, 0.01);
        QCOMPARE(kept.size(), 1);
        QVERIFY(kept[0] == line({0, 0}, {10, 10}));
    }

    void lineInPartOnAnother_keepsItsRest()
    {
        const QVector<VectorPath> kept =
            withoutDoubles({line({0, 0}, {10, 0}), line({6, 0}, {15, 0})}, 0.01);
        QCOMPARE(kept.size(), 2);
        QVERIFY(kept[1] == line({10, 0}, {15, 0}));
        QCOMPARE(lengthOf(kept), 15.0);
    }

    void lineOverTwoShorterOnes_takesBoth()
    {
        const QVector<VectorPath> kept = withoutDoubles(
            {line({0, 0}, {3, 0}), line({5, 0}, {8, 0}), line({0, 0}, {10, 0})}, 0.01);
        QCOMPARE(lengthOf(kept), 10.0);
        QCOMPARE(kept.size(), 1);
    }

    void linesThatCrossOrTouch_stay()
    {
        const QVector<VectorPath> paths{line({0, 0}, {10, 0}), line({5, -5}, {5, 5}),
                                        line({10, 0}, {20, 0}), line({0, 0.02}, {10, 0.02}),
                                        line({0, 0}, {10, 0.1})};
        QCOMPARE(withoutDoubles(paths, 0.01), paths);
    }

    void squaresSharingAnEdge_drawItOnce()
    {
        const VectorPath left = VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
        const VectorPath right = VectorPath::polyline({{10, 0}, {20, 0}, {20, 10}, {10, 10}}, true);
        const QVector<VectorPath> kept = withoutDoubles({left, right}, 0.01);
        QCOMPARE(kept.size(), 2);
        QVERIFY(kept[0] == left);
        QVERIFY(!kept[1].isClosed());
        QCOMPARE(kept[1].pieceCount(), 3);
        QCOMPARE(lengthOf(kept), 70.0);
    }

    void closedOutlineLosingAMiddleEdge_isOneRunOverItsStart()
    {
        const VectorPath square = VectorPath::polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
        const QVector<VectorPath> kept = withoutDoubles({line({10, -5}, {10, 15}), square}, 0.01);
        QCOMPARE(kept.size(), 2);
        QCOMPARE(kept[1].polylinePoints(), (QVector<QPointF>{{10, 10}, {0, 10}, {0, 0}, {10, 0}}));
    }

    void curvesTwice_stayOnce()
    {
        VectorPath arc(QPointF(1, 0));
        arc.arcAbout(QPointF(0, 0), 90.0);
        VectorPath other(QPointF(1, 0));
        other.arcAbout(QPointF(0, 0), -270.0);
        VectorPath turned(QPointF(0, 5)); // the circle from another start
        turned.arcAbout(QPointF(0, 0), -360.0);
        const QVector<VectorPath> kept =
            withoutDoubles({arc, arc.reversed(), other, VectorPath::circle(QPointF(0, 0), 5.0),
                            turned, VectorPath::circle(QPointF(0, 0), 6.0)},
                           0.01);
        QCOMPARE(kept.size(), 4);
    }

    void aDrawingDrawnTwice_isHalved()
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> place(0.0, 100.0);
        QVector<VectorPath> paths;
        for (int i = 0; i < 1000; ++i)
            paths.append(line({place(random), place(random)}, {place(random), place(random)}));
        const double length = lengthOf(paths);
        QVector<VectorPath> twice = paths;
        for (const VectorPath &path : qAsConst(paths))
            twice.append(path.reversed());
        std::shuffle(twice.begin(), twice.end(), random);
        DoubleFigures figures;
        const QVector<VectorPath> kept = withoutDoubles(twice, 0.001, &figures);
        QCOMPARE(kept.size(), 1000);
        QCOMPARE(figures.doubled, 1000);
        QVERIFY(qAbs(lengthOf(kept) - length) < 1e-9 * length);
    }
};

QTEST_GUILESS_MAIN(tst_PathDoubles)
#include "tst_PathDoubles.moc"
