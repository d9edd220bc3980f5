#include <jobkit/hatch/OutlineUnion.h>

#include <QtTest/QTest>

#include <algorithm>

using namespace jobkit;
using Groups = QVector<QVector<int>>;

namespace {

QPolygonF square(double x, double y, double size) { return QPolygonF(QRectF(x, y, size, size)); }

QPolygonF reversed(QPolygonF polygon)
{
    std::reverse(polygon.begin(), polygon.end());
    return polygon;
}

} // namespace
Q_DECLARE_METATYPE(Groups)

/** Which outlines of a shape overlap. */
class tst_OutlineUnion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void groups_data()
    {
        QTest::addColumn<Area>("outlines");
        QTest::addColumn<Groups>("groups");
        const QPolygonF open({{0, 0}, {10, 0}, {10, 10}});
        QTest::newRow("none") << Area() << Groups();
        QTest::newRow("one") << Area{square(0, 0, 10)} << Groups();
        QTest::newRow("apart") << Area{square(0, 0, 10), square(11, 0, 10)} << Groups();
        QTest::newRow("crossing") << Area{square(0, 0, 10), square(5, 5, 10)} << Groups{{0, 1}};
        QTest::newRow("hole") << Area{square(0, 0, 10), reversed(square(2, 2, 3))} << Groups();
        QTest::newRow("covered") << Area{square(0, 0, 10), square(2, 2, 3)} << Groups{{0, 1}};
        QTest::newRow("twice") << Area{square(0, 0, 10), square(0, 0, 10)} << Groups{{0, 1}};
        QTest::newRow("hole of a crossing one") << Area{square(0, 0, 10), reversed(square(2, 2, 3)),
                                                        square(30, 30, 1), square(8, 8, 10)}
                                                << Groups{{0, 1, 3}};
        QTest::newRow("two groups")
            << Area{square(0, 0, 10), square(20, 0, 10), square(5, 5, 10), square(25, 5, 10)}
            << Groups{{0, 2}, {1, 3}};
        QTest::newRow("open") << Area{open, square(5, -5, 10)} << Groups();
        QTest::newRow("crosses itself")
            << Area{QPolygonF({{0, 0}, {10, 10}, {10, 0}, {0, 10}, {0, 0}})} << Groups{{0}};
        QTest::newRow("no number")
            << Area{QPolygonF({{0, 0}, {qQNaN(), 1}, {3, 3}, {0, 0}}), square(0, 0, 10)}
            << Groups();
    }

    void groups()
    {
        QFETCH(Area, outlines);
        QFETCH(Groups, groups);
        QCOMPARE(overlappingOutlines(outlines), groups);
    }
};

QTEST_MAIN(tst_OutlineUnion)
#include "tst_OutlineUnion.moc"
