#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/model/ZTPointSort.h>

#include <QtTest/QTest>

#include <cmath>
#include <limits>

namespace {

using Kind = EShapeSortType;
using Pens = QVector<int>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/** An object whose outline begins at `first`; it ends elsewhere, which must not count. */
ZTMarkObject objectAt(int penId, const QPointF &first)
{
    ZTMarkObject object;
    object.penId = penId;
    object.lines << QPolygonF(QVector<QPointF>{first, QPointF(29999, 29999)});
    return object;
}

/** An object that is reached at `first` and left at `next`. */
ZTMarkObject objectFromTo(int penId, const QPointF &first, const QPointF &next)
{
    ZTMarkObject object = objectAt(penId, first);
    object.lines << QPolygonF(QVector<QPointF>{next, QPointF(-29999, -29999)});
    return object;
}

ZTMarkObject objectWithoutPolygons(int penId)
{
    ZTMarkObject object;
    object.penId = penId;
    return object;
}

ZTMarkObject objectWithEmptyFirst(int penId, const QPointF &next)
{
    ZTMarkObject object = objectWithoutPolygons(penId);
    object.lines << QPolygonF() << QPolygonF(QVector<QPointF>{next, QPointF(29999, 29999)});
    return object;
}

ZTMarkObject objectWithEmptyLast(int penId, const QPointF &first)
{
    ZTMarkObject object = objectAt(penId, first);
    object.lines << QPolygonF();
    return object;
}

ZTMarkGraph graphOf(const QVector<ZTMarkObject> &objects)
{
    ZTMarkGraph graph;
    graph.objects = objects;
    return graph;
}

ZTMarkGraph graphAt(const QVector<QPointF> &points)
{
    ZTMarkGraph graph;
    for (int i = 0; i < points.size(); ++i)
        graph.objects << objectAt(10 + i, points.at(i));
    return graph;
}

Pens sortedPens(Kind kind, ZTMarkGraph graph)
{
    ZTPointSort::getInstance()->setShapeMarkSort(kind);
    ZTPointSort::getInstance()->markGraphSort(graph);
    Pens pens;
    for (const ZTMarkObject &object : qAsConst(graph.objects))
        pens << object.penId;
    return pens;
}

QList<QPolygonF> polygonsAt(const QVector<QPointF> &points)
{
    QList<QPolygonF> polygons;
    for (const QPointF &point : points)
        polygons << QPolygonF(QVector<QPointF>{point, QPointF(1000, 1000)});
    return polygons;
}

QVector<QPointF> firstPoints(const QList<QPolygonF> &polygons)
{
    QVector<QPointF> points;
    for (const QPolygonF &polygon : polygons)
        points << polygon.first();
    return points;
}

void addKindRows(std::initializer_list<int> kinds)
{
    QTest::addColumn<int>("kind");
    for (const int kind : kinds)
        QTest::addRow("kind %d", kind) << kind;
}

} // namespace

class tst_ZTPointSort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void newInstance_sortsNothing()
    {
        QCOMPARE(ZTPointSort::getInstance()->getShapeMarkSort(), Kind::ShapeSortNone);
    }

    void setShapeMarkSort_staysUntilRelease()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(Kind::ShapeSortYFromMin);
        QCOMPARE(ZTPointSort::getInstance()->getShapeMarkSort(), Kind::ShapeSortYFromMin);
        sortedPens(Kind::ShapeSortYFromMax, graphAt({{1, 1}, {2, 2}}));
        QCOMPARE(ZTPointSort::getInstance()->getShapeMarkSort(), Kind::ShapeSortYFromMax);
        ZTPointSort::release();
        QCOMPARE(ZTPointSort::getInstance()->getShapeMarkSort(), Kind::ShapeSortNone);
    }

    void sortPolygons_xFromMin_ascendsByFirstX()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(Kind::ShapeSortXFromMin);
        QList<QPolygonF> polygons = polygonsAt({{5, 0}, {-1, 9}, {3, -7}, {4, 100}});
        const QList<QPolygonF> copy = ZTPointSort::getInstance()->sort(polygons);
        QCOMPARE(firstPoints(polygons), QVector<QPointF>({{-1, 9}, {3, -7}, {4, 100}, {5, 0}}));
        QCOMPARE(copy, polygons);
    }

    void sortPolygons_anyOtherKind_descendsByFirstX_data() { addKindRows({0, 1, 3, 4, 5, 6, -1}); }

    void sortPolygons_anyOtherKind_descendsByFirstX()
    {
        QFETCH(int, kind);
        ZTPointSort::getInstance()->setShapeMarkSort(static_cast<Kind>(kind));
        QList<QPolygonF> polygons = polygonsAt({{5, 0}, {-1, 9}, {3, -7}, {4, 100}});
        const QList<QPolygonF> copy = ZTPointSort::getInstance()->sort(polygons);
        QCOMPARE(firstPoints(polygons), QVector<QPointF>({{5, 0}, {4, 100}, {3, -7}, {-1, 9}}));
        QCOMPARE(copy, polygons);
    }

    void sortPolygons_none_staysNone()
    {
        QList<QPolygonF> polygons;
        QVERIFY(ZTPointSort::getInstance()->sort(polygons).isEmpty());
    }

    void sortPolygons_emptyAndNoNumber_comeLast_data() { addKindRows({0, 2}); }

    void sortPolygons_emptyAndNoNumber_comeLast()
    {
        QFETCH(int, kind);
        ZTPointSort::getInstance()->setShapeMarkSort(static_cast<Kind>(kind));
        QList<QPolygonF> polygons = polygonsAt({{kNan, 1}, {3, 0}, {kNan, 2}, {8, 0}, {4, 0}});
        polygons.prepend(QPolygonF());
        polygons.insert(3, QPolygonF());
        ZTPointSort::getInstance()->sort(polygons);
        QCOMPARE(polygons.size(), 7);
        QCOMPARE(polygons.at(0).first().x(), kind == 2 ? 3.0 : 8.0);
        QCOMPARE(polygons.at(1).first().x(), 4.0);
        QCOMPARE(polygons.at(2).first().x(), kind == 2 ? 8.0 : 3.0);
        QVERIFY(std::isnan(polygons.at(3).first().x()));
        QVERIFY(std::isnan(polygons.at(4).first().x()));
        QVERIFY(polygons.at(5).isEmpty());
        QVERIFY(polygons.at(6).isEmpty());
    }

    void sortPolygons_many_losesNone()
    {
        QList<QPolygonF> polygons;
        for (int i = 0; i < 1000; ++i)
            polygons << QPolygonF(QVector<QPointF>{QPointF((i * 37) % 100, i)});
        ZTPointSort::getInstance()->sort(polygons);
        QSet<int> seen;
        for (int i = 0; i < polygons.size(); ++i) {
            seen << static_cast<int>(polygons.at(i).first().y());
            QVERIFY(i == 0 || polygons.at(i - 1).first().x() >= polygons.at(i).first().x());
        }
        QCOMPARE(seen.size(), 1000);
    }

    void markGraphSort_emptyGraph_comesBackUnchanged_data() { addKindRows({0, 1, 2, 3, 4, 5}); }

    void markGraphSort_emptyGraph_comesBackUnchanged()
    {
        QFETCH(int, kind);
        ZTMarkGraph graph;
        graph.rect = QRectF(1, 2, 3, 4);
        ZTPointSort::getInstance()->setShapeMarkSort(static_cast<Kind>(kind));
        QCOMPARE(&ZTPointSort::getInstance()->markGraphSort(graph), &graph);
        QVERIFY(graph.objects.isEmpty());
        QCOMPARE(graph.rect, QRectF(1, 2, 3, 4));
    }

    void markGraphSort_firstObjectWithoutPolygons_changesNothing()
    {
        const ZTMarkGraph graph =
            graphOf({objectWithoutPolygons(1), objectAt(2, {5, 0}), objectAt(3, {1, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({1, 2, 3}));
    }

    void markGraphSort_firstObjectWithEmptyFirstPolygon_changesNothing()
    {
        const ZTMarkGraph graph =
            graphOf({objectWithEmptyFirst(1, {0, 0}), objectAt(2, {5, 0}), objectAt(3, {1, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({1, 2, 3}));
    }

    void markGraphSort_kindOutsideTheTable_changesNothing_data() { addKindRows({0, 6, -1, 1000}); }

    void markGraphSort_kindOutsideTheTable_changesNothing()
    {
        QFETCH(int, kind);
        QCOMPARE(sortedPens(static_cast<Kind>(kind), graphAt({{5, 0}, {1, 0}, {3, 0}})),
                 Pens({10, 11, 12}));
    }

    void markGraphSort_returnsItsArgument_rectStays()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(Kind::ShapeSortXFromMin);
        ZTMarkGraph graph = graphAt({{5, 0}, {1, 0}});
        graph.rect = QRectF(1, 2, 3, 4);
        QCOMPARE(&ZTPointSort::getInstance()->markGraphSort(graph), &graph);
        QCOMPARE(graph.rect, QRectF(1, 2, 3, 4));
        QCOMPARE(graph.objects.first().penId, 11);
    }

    void markGraphSort_movesObjectsWhole()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(Kind::ShapeSortXFromMin);
        ZTMarkGraph graph = graphAt({{5, 0}, {1, 0}});
        graph.objects[1].lines << QPolygonF(QVector<QPointF>{{9, 9}, {8, 8}});
        graph.objects[1].fillLines << QLineF(1, 2, 3, 4);
        graph.objects[1].rect = QRectF(4, 3, 2, 1);
        const ZTMarkGraph before = graph;
        ZTPointSort::getInstance()->markGraphSort(graph);
        QCOMPARE(graph.objects.first().lines, before.objects.at(1).lines);
        QCOMPARE(graph.objects.first().fillLines, before.objects.at(1).fillLines);
        QCOMPARE(graph.objects.first().rect, QRectF(4, 3, 2, 1));
        QCOMPARE(before.objects.first().penId, 10); // the copy kept its own order
    }

    void markGraphSort_followsTheKind_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<Pens>("order");
        // Places of pens 10 to 13: (5, 70), (1, 90), (3, 60), (2, 80).
        QTest::newRow("nearest") << 1 << Pens({10, 12, 13, 11});
        QTest::newRow("x from min") << 2 << Pens({11, 13, 12, 10});
        QTest::newRow("x from max") << 3 << Pens({10, 12, 13, 11});
        QTest::newRow("y from min") << 4 << Pens({12, 10, 13, 11});
        QTest::newRow("y from max") << 5 << Pens({11, 13, 10, 12});
    }

    void markGraphSort_followsTheKind()
    {
        QFETCH(int, kind);
        QFETCH(Pens, order);
        const ZTMarkGraph graph = graphAt({{5, 70}, {1, 90}, {3, 60}, {2, 80}});
        QCOMPARE(sortedPens(static_cast<Kind>(kind), graph), order);
    }

    void markGraphSort_xFromMin_threeObjects_ascend()
    {
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graphAt({{5, 0}, {1, 0}, {3, 0}})),
                 Pens({11, 12, 10}));
    }

    void markGraphSort_startsFarOutside_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("firstPen");
        // One object at each side of the field; an object in the middle stands first.
        QTest::newRow("nearest") << 1 << 15;
        QTest::newRow("x from min") << 2 << 11;
        QTest::newRow("x from max") << 3 << 12;
        QTest::newRow("y from min") << 4 << 13;
        QTest::newRow("y from max") << 5 << 14;
    }

    void markGraphSort_startsFarOutside()
    {
        QFETCH(int, kind);
        QFETCH(int, firstPen);
        const ZTMarkGraph graph =
            graphAt({{0, 0}, {-29000, 0}, {29000, 0}, {0, -29000}, {0, 29000}, {20000, 20000}});
        QCOMPARE(sortedPens(static_cast<Kind>(kind), graph).first(), firstPen);
    }

    void markGraphSort_startIsAPlaceAndNoLimit()
    {
        // Objects beyond the start point are approached from it, too.
        const ZTMarkGraph graph = graphAt({{-40000, 0}, {-31000, 0}, {-28000, 0}});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({11, 12, 10}));
    }

    void markGraphSort_nearest_costIsTheLargerDifference()
    {
        // From (0, 0): 7 by x, 8 by y, and 6 by both, which is farthest on a straight line.
        const ZTMarkGraph graph =
            graphOf({objectFromTo(1, {29990, 29990}, {0, 0}), objectAt(2, {7, 0}),
                     objectAt(3, {0, 8}), objectAt(4, {6, 6})});
        QCOMPARE(sortedPens(Kind::ShapeSortNearest, graph).mid(0, 2), Pens({1, 4}));
    }

    void markGraphSort_nearest_equalXDifference_largerYCounts()
    {
        const ZTMarkGraph graph =
            graphOf({objectFromTo(1, {29990, 29990}, {0, 0}), objectAt(2, {5, 9}),
                     objectAt(3, {-5, 7}), objectAt(4, {5, -6})});
        QCOMPARE(sortedPens(Kind::ShapeSortNearest, graph).mid(0, 2), Pens({1, 4}));
    }

    void markGraphSort_tie_earlierObjectGoesFirst_data() { addKindRows({1, 2, 3, 4, 5}); }

    void markGraphSort_tie_earlierObjectGoesFirst()
    {
        QFETCH(int, kind);
        QVector<QPointF> onePlace(50, QPointF(100, 100));
        const Pens pens = sortedPens(static_cast<Kind>(kind), graphAt(onePlace));
        for (int i = 0; i < pens.size(); ++i)
            QCOMPARE(pens.at(i), 10 + i);
    }

    void markGraphSort_tieOfBothSides_earlierObjectGoesFirst()
    {
        const ZTMarkObject start = objectFromTo(1, {-29990, 0}, {0, 0});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin,
                            graphOf({start, objectAt(2, {5, 0}), objectAt(3, {-5, 0})})),
                 Pens({1, 2, 3}));
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin,
                            graphOf({start, objectAt(3, {-5, 0}), objectAt(2, {5, 0})})),
                 Pens({1, 3, 2}));
    }

    void markGraphSort_placesOfOneComputedCost_tie()
    {
        // 30000 + 1e-13 is 30000 as computed, so the later, truly nearer object gains nothing.
        const ZTMarkGraph graph = graphAt({{1e-13, 0}, {0, 0}});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({10, 11}));
    }

    void markGraphSort_goesOnFromFirstPointOfLastPolygon()
    {
        // Pen 1 ends its marking at (-29999, -29999), began at (-29990, 0), and is left at (100,
        // 0).
        const ZTMarkGraph graph =
            graphOf({objectFromTo(1, {-29990, 0}, {100, 0}), objectAt(2, {-29980, 0}),
                     objectAt(3, {90, 0}), objectAt(4, {10, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({1, 3, 4, 2}));
    }

    void markGraphSort_sweepIsNoStrictSort()
    {
        // Left at x = 50, the nearer of 40 and 80 comes next, then back up.
        const ZTMarkGraph graph =
            graphOf({objectAt(1, {80, 0}), objectFromTo(2, {0, 0}, {50, 0}), objectAt(3, {40, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({2, 3, 1}));
    }

    void markGraphSort_objectWithoutPolygons_waitsUntilItIsTheLast()
    {
        const ZTMarkGraph graph = graphOf({objectAt(1, {5, 0}), objectWithoutPolygons(2),
                                           objectAt(3, {1, 0}), objectAt(4, {3, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({3, 4, 1, 2}));
    }

    void markGraphSort_twoObjectsWithoutPolygons_secondIsLost()
    {
        // The chain ends at the first of them; a default object keeps the other's place.
        const ZTMarkGraph graph = graphOf({objectAt(7, {5, 0}), objectWithoutPolygons(8),
                                           objectWithoutPolygons(9), objectAt(6, {1, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({6, 7, 8, 1}));
    }

    void markGraphSort_emptyLastPolygon_endsTheChain()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(Kind::ShapeSortXFromMin);
        ZTMarkGraph graph = graphOf({objectAt(5, {5, 0}), objectWithEmptyLast(6, {1, 0}),
                                     objectAt(7, {3, 0}), objectAt(8, {0, 0})});
        graph.rect = QRectF(1, 2, 3, 4);
        ZTPointSort::getInstance()->markGraphSort(graph);
        QCOMPARE(graph.objects.size(), 4);
        QCOMPARE(graph.objects.at(0).penId, 8);
        QCOMPARE(graph.objects.at(1).penId, 6);
        for (const ZTMarkObject &left : {graph.objects.at(2), graph.objects.at(3)}) {
            QCOMPARE(left.penId, 1);
            QVERIFY(left.lines.isEmpty());
            QVERIFY(left.fillLines.isEmpty());
            QVERIFY(left.rect.isNull());
        }
        QCOMPARE(graph.rect, QRectF(1, 2, 3, 4));
    }

    void markGraphSort_emptyFirstPolygon_hidesWhatStandsBehind()
    {
        // Pens 4 and 5 lie nearer, yet are not looked at before pen 3 is gone; it goes as the
        // first remaining object, and is left at (50, 0).
        const ZTMarkGraph graph =
            graphOf({objectAt(1, {20, 0}), objectAt(2, {10, 0}), objectWithEmptyFirst(3, {50, 0}),
                     objectAt(4, {0, 0}), objectAt(5, {45, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({2, 1, 3, 5, 4}));
    }

    void markGraphSort_onlyPolygonEmpty_endsTheChainWhereItIsTaken()
    {
        ZTMarkObject empty = objectWithoutPolygons(3);
        empty.lines << QPolygonF();
        const ZTMarkGraph graph = graphOf({objectAt(2, {20, 0}), empty, objectAt(4, {0, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({2, 3, 1}));
    }

    void markGraphSort_objectWithoutPolygonsBeforeAHidingOne_endsTheChain()
    {
        const ZTMarkGraph graph = graphOf({objectAt(2, {20, 0}), objectWithoutPolygons(3),
                                           objectWithEmptyFirst(4, {0, 0}), objectAt(5, {0, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({2, 3, 1, 1}));
    }

    void markGraphSort_outOfReach_takesTheFirstRemaining()
    {
        // The bound itself counts as out of reach. One below it is taken for its cost.
        const double reach = 999999999999999.0;
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin,
                            graphAt({{reach - 30000, 0}, {1e300, 0}, {reach - 30001, 0}})),
                 Pens({12, 10, 11}));
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin,
                            graphAt({{reach - 30000, 0}, {1e300, 0}, {reach, 0}})),
                 Pens({10, 12, 11}));
    }

    void markGraphSort_outOfReach_objectWithoutPolygonsMayBeTheFirstRemaining()
    {
        const ZTMarkGraph graph =
            graphOf({objectAt(2, {0, 0}), objectWithoutPolygons(3), objectAt(4, {1e300, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({2, 3, 1}));
    }

    void markGraphSort_noNumber_isNeverChosenForItsCost()
    {
        const ZTMarkGraph graph =
            graphAt({{kNan, 0}, {5, 0}, {kInfinity, 0}, {-kInfinity, 0}, {1, 0}});
        // After pen 10, the first remaining one, no place has a cost: all go in their order.
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({14, 11, 10, 12, 13}));
    }

    void markGraphSort_leftAtNoNumber_goesOnWithTheFirstRemaining()
    {
        const ZTMarkGraph graph = graphOf(
            {objectAt(1, {20, 0}), objectAt(2, {10, 0}), objectFromTo(3, {0, 0}, {kNan, kNan})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({3, 1, 2}));
        QCOMPARE(sortedPens(Kind::ShapeSortNearest, graph), Pens({1, 2, 3}));
    }

    void markGraphSort_sweepThroughACrowd_takesNeighboursAndTheEarlierOfTwo_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("across") << static_cast<int>(Kind::ShapeSortXFromMin);
        QTest::newRow("down") << static_cast<int>(Kind::ShapeSortYFromMin);
    }
    // From afar all cost the same, so that the first one is taken; among them each step costs what
    // it is long. They stand at 100, 101, 99, 102, 98 and so on, in steps that leave no rounding.
    void markGraphSort_sweepThroughACrowd_takesNeighboursAndTheEarlierOfTwo()
    {
        QFETCH(int, kind);
        const auto placeOf = [](int step) { return std::ldexp(step, -60); };
        QVector<QPointF> points{{placeOf(100), placeOf(100)}};
        Pens upward{10};
        Pens downward;
        for (int i = 1; i <= 100; ++i) {
            upward << 10 + points.size();
            points << QPointF(placeOf(100 + i), placeOf(100 + i));
            downward << 10 + points.size();
            points << QPointF(placeOf(100 - i), placeOf(100 - i));
        }
        QCOMPARE(sortedPens(static_cast<Kind>(kind), graphAt(points)), upward + downward);
    }

    void markGraphSort_sweep_goesOnFromWhereAnObjectIsLeft()
    {
        const ZTMarkGraph graph =
            graphOf({objectFromTo(1, {0, 0}, {50, 0}), objectAt(2, {10, 0}), objectAt(3, {45, 0}),
                     objectFromTo(4, {60, 0}, {12, 0}), objectAt(5, {100, 0})});
        QCOMPARE(sortedPens(Kind::ShapeSortXFromMin, graph), Pens({1, 3, 4, 2, 5}));
    }

    void markGraphSort_nearest_ofAColumn()
    {
        QVector<QPointF> points;
        Pens fromTheTop;
        for (int i = 0; i < 50; ++i) {
            points << QPointF(29000, 10 * i);
            fromTheTop.prepend(10 + i);
        }
        QCOMPARE(sortedPens(Kind::ShapeSortNearest, graphAt(points)), fromTheTop);
    }

    void markGraphSort_sortedGraphOnceMore_staysEqual()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(Kind::ShapeSortYFromMax);
        ZTMarkGraph graph = graphAt({{0, 3}, {0, 9}, {0, 6}});
        ZTPointSort::getInstance()->markGraphSort(graph);
        QCOMPARE(sortedPens(Kind::ShapeSortYFromMax, graph), Pens({11, 12, 10}));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_GUILESS_MAIN(tst_ZTPointSort)
#include "tst_ZTPointSort.moc"
