#include <vectorkit/clean/Nesting.h>

#include <QtTest/QTest>

using vectorkit::holdersOf;
using vectorkit::VectorPath;

namespace {

VectorPath square(double x, double y, double side)
{
    return VectorPath::polyline({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}}, true);
}

} // namespace

class tst_Nesting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void each_isHeldByTheSmallestAroundIt()
    {
        const QVector<VectorPath> paths{square(0, 0, 100), square(10, 10, 50), square(20, 20, 10),
                                        square(200, 0, 10), square(70, 70, 5)};
        QCOMPARE(holdersOf(paths), (std::vector<int>{-1, 0, 1, -1, 0}));
    }

    void openPaths_areHeldAndHoldNothing()
    {
        const VectorPath openSquare =
            VectorPath::polyline({{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 1}});
        const VectorPath line = VectorPath::polyline({{20, 20}, {30, 30}});
        QCOMPARE(holdersOf({openSquare, line, square(10, 10, 50)}), (std::vector<int>{-1, 2, -1}));
    }

    void equalOutlines_holdNeither()
    {
        QCOMPARE(holdersOf({square(0, 0, 10), square(0, 0, 10)}), (std::vector<int>{-1, -1}));
    }

    void whatLiesInTheNotchOfAnOutline_isNotHeld()
    {
        // A U: its box holds the square, its inside does not.
        const VectorPath notched = VectorPath::polyline(
            {{0, 0}, {30, 0}, {30, 30}, {20, 30}, {20, 10}, {10, 10}, {10, 30}, {0, 30}}, true);
        QCOMPARE(holdersOf({notched, square(12, 15, 5)}), (std::vector<int>{-1, -1}));
    }

    void circles_holdByTheirCurve()
    {
        const VectorPath circle = VectorPath::circle({0, 0}, 10);
        QCOMPARE(holdersOf({circle, square(5, 5, 1), square(8, 8, 1)}),
                 (std::vector<int>{-1, 0, -1}));
    }

    void cancelled_givesNothing()
    {
        const QVector<VectorPath> paths{square(0, 0, 100), square(10, 10, 50)};
        QVERIFY(holdersOf(paths, [](double) { return false; }).empty());
    }
};

QTEST_GUILESS_MAIN(tst_Nesting)
#include "tst_Nesting.moc"
