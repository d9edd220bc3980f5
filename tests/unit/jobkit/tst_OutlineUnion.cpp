#include <jobkit/hatch/OutlineUnion.h>

#include <QtCore/QRandomGenerator>
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

bool isLeft(const QPolygonF &box) { return box[1].y() == box[0].y(); }

/** The rule word by word for rectangles along the axes, of which no two share a coordinate. */
Groups plainGroups(const Area &boxes)
{
    const int count = boxes.size();
    QVector<int> group(count, -1); // by its least member; -1: in none
    const auto join = [&](int a, int b) {
        const int from = group[a] < 0 ? a : group[a];
        const int to = group[b] < 0 ? b : group[b];
        group[a] = from;
        group[b] = to;
        for (int &one : group) {
            if (one == std::max(from, to))
                one = std::min(from, to);
        }
    };
    const auto lies = [&](int inner, int outer) {
        return boxes[outer].boundingRect().contains(boxes[inner].boundingRect());
    };
    for (int a = 0; a < count; ++a) {
        for (int b = a + 1; b < count; ++b) {
            const bool isNested = lies(a, b) || lies(b, a);
            const bool meets = boxes[a].boundingRect().intersects(boxes[b].boundingRect());
            if (meets && (!isNested || isLeft(boxes[a]) == isLeft(boxes[b])))
                join(a, b);
        }
    }
    for (bool isMore = true; isMore;) {
        isMore = false;
        for (int outer = 0; outer < count; ++outer) {
            for (int inner = 0; group[outer] >= 0 && inner < count; ++inner) {
                if (group[inner] < 0 && lies(inner, outer)) {
                    join(outer, inner);
                    isMore = true;
                }
            }
        }
    }
    Groups groups;
    for (int least = 0; least < count; ++least) {
        if (group.contains(least)) {
            groups.append(QVector<int>());
            for (int i = 0; i < count; ++i) {
                if (group[i] == least)
                    groups.last() << i;
            }
        }
    }
    return groups;
}

} // namespace
Q_DECLARE_METATYPE(Groups)

/** Which outlines of a shape overlap. */
class tst_OutlineUnion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** Random rectangles, each pair looked at for itself. */
    void groups_equalThePlainWay()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 3000; ++round) {
            Area outlines;
            const int count = random.bounded(1, 16);
            for (int i = 0; i < count; ++i) {
                const QRectF box(random.bounded(60.0), random.bounded(60.0),
                                 1.0 + random.bounded(40.0), 1.0 + random.bounded(40.0));
                outlines << (random.bounded(2) == 0 ? QPolygonF(box) : reversed(QPolygonF(box)));
            }
            QCOMPARE(overlappingOutlines(outlines), plainGroups(outlines));
        }
    }

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
