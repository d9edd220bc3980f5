#include <vectorkit/clean/PathOrder.h>

#include <QtTest/QTest>

#include <random>

using vectorkit::jumpsMm;
using vectorkit::orderedPaths;
using vectorkit::VectorPath;

namespace {

VectorPath line(double from, double to) { return VectorPath::polyline({{from, 0}, {to, 0}}); }

VectorPath square(double x, double y, double side)
{
    return VectorPath::polyline({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}}, true);
}

} // namespace

class tst_PathOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nearestEndFirst_reversedWhereThatIsNearer()
    {
        const QVector<VectorPath> ordered =
            orderedPaths({line(50, 60), line(11, 20), line(49, 25), line(0, 10)}, QPointF(0, 0));
        QCOMPARE(ordered,
                 (QVector<VectorPath>{line(0, 10), line(11, 20), line(25, 49), line(50, 60)}));
        QCOMPARE(jumpsMm(ordered), 1.0 + 5.0 + 1.0);
    }

    void innerBeforeOuter()
    {
        const QVector<VectorPath> nested{square(0, 0, 100), square(10, 10, 80), square(20, 20, 10),
                                         square(200, 0, 10), square(60, 60, 10)};
        const QVector<VectorPath> ordered = orderedPaths(nested, QPointF(0, 0));
        QCOMPARE(ordered.size(), 5);
        const auto place = [&](int index) { return ordered.indexOf(nested[index]); };
        QVERIFY(place(2) < place(1));
        QVERIFY(place(4) < place(1));
        QVERIFY(place(1) < place(0));
    }

    void equalOutlines_waitForNeither()
    {
        const QVector<VectorPath> same{square(0, 0, 10), square(0, 0, 10)};
        QCOMPARE(orderedPaths(same, QPointF(0, 0)).size(), 2);
    }

    void everyPath_comesOnce_andNearestEachTime()
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> place(0.0, 100.0);
        QVector<VectorPath> paths;
        for (int i = 0; i < 300; ++i)
            paths.append(VectorPath::polyline(
                {{place(random), place(random)}, {place(random), place(random)}}));
        const QVector<VectorPath> ordered = orderedPaths(paths, QPointF(0, 0));
        // By looking at all that are left each time.
        QVector<VectorPath> left = paths;
        QPointF at(0, 0);
        const auto square = [&](const QPointF &p) { return QPointF::dotProduct(p - at, p - at); };
        for (const VectorPath &path : ordered) {
            double least = 1e300;
            for (const VectorPath &other : qAsConst(left))
                least = std::min({least, square(other.start()), square(other.end())});
            QCOMPARE(square(path.start()), least);
            const bool isKnown = left.removeOne(path) || left.removeOne(path.reversed());
            QVERIFY(isKnown);
            at = path.end();
        }
        QVERIFY(left.isEmpty());
    }

    void cancelled_staysAsItWas()
    {
        const QVector<VectorPath> paths{line(50, 60), line(0, 10)};
        QCOMPARE(orderedPaths(paths, QPointF(0, 0), [](double) { return false; }), paths);
    }
};

QTEST_GUILESS_MAIN(tst_PathOrder)
#include "tst_PathOrder.moc"
