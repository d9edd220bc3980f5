#include <support/Effort.h>
#include <support/SingletonGuard.h>
#include <support/oracle/PlainChain.h>

#include <ZTDrawEngineLib/model/ZTPointSort.h>

#include <QtTest/QTest>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

using Random = std::mt19937;
using MakeCoordinate = double (*)(Random &);

int below(Random &random, int limit) { return static_cast<int>(random() % unsigned(limit)); }

double inField(Random &random)
{
    return std::uniform_real_distribution<double>(-30000.0, 30000.0)(random);
}

double onLattice(Random &random) { return below(random, 5) * 10.0; }

double onFineLattice(Random &random) { return below(random, 40) * 0.1; }

/** Distinct places that one computed cost from the start point cannot tell apart. */
double closerThanRounding(Random &random) { return below(random, 50) * 1e-13; }

/** Very many that cost the same from afar, each at a place of its own. */
double crowded(Random &random) { return below(random, 100000) * 1e-17; }

/** Two such crowds, from one to the other and back. */
double crowdedAtTwoPlaces(Random &random)
{
    return below(random, 100000) * 1e-17 + below(random, 2) * 1e-3;
}

/** Places far apart and close together at once, where sums round in every step. */
double ofAllSizes(Random &random)
{
    const double size = std::pow(10.0, below(random, 36) - 18);
    return (below(random, 200) - 100) * size;
}

/** Around the cost that counts as out of reach. */
double aroundTheBound(Random &random)
{
    static const double places[] = {0.0,
                                    30000.0,
                                    -30000.0,
                                    999999999999999.0,
                                    -999999999999999.0,
                                    999999999969999.0,
                                    -999999999969999.0,
                                    1000000000030000.0,
                                    1e15,
                                    -1e15,
                                    1e300,
                                    std::numeric_limits<double>::max(),
                                    std::numeric_limits<double>::lowest()};
    return places[below(random, 13)] + below(random, 3) - 1;
}

double sometimesNoNumber(Random &random)
{
    switch (below(random, 12)) {
    case 0:
        return kNan;
    case 1:
        return kInfinity;
    case 2:
        return -kInfinity;
    default:
        return onLattice(random);
    }
}

QPolygonF polygonAt(Random &random, MakeCoordinate make)
{
    QPolygonF polygon;
    const int points = 1 + below(random, 3);
    for (int i = 0; i < points; ++i)
        polygon << QPointF(make(random), make(random));
    return polygon;
}

struct Oddities
{
    int noPolygons = 0;   ///< one object in so many has no polygons; 0 for none
    int emptyFirst = 0;   ///< one in so many has an empty first polygon
    int emptyLast = 0;    ///< one in so many has an empty last polygon
    int morePolygons = 2; ///< one in so many has more than one polygon
};

bool oneIn(Random &random, int count) { return count > 0 && below(random, count) == 0; }

ZTMarkGraph randomGraph(Random &random, int count, MakeCoordinate make, const Oddities &odd)
{
    ZTMarkGraph graph;
    for (int i = 0; i < count; ++i) {
        ZTMarkObject object;
        object.penId = 100 + i;
        object.rect = QRectF(i, 0, 1, 1);
        object.lines << polygonAt(random, make);
        while (oneIn(random, odd.morePolygons))
            object.lines << polygonAt(random, make);
        if (i > 0 && oneIn(random, odd.emptyFirst))
            object.lines.prepend(QPolygonF());
        if (oneIn(random, odd.emptyLast))
            object.lines.append(QPolygonF());
        if (i > 0 && oneIn(random, odd.noPolygons))
            object.lines.clear();
        graph.objects << object;
    }
    return graph;
}

QVector<int> pens(const ZTMarkGraph &graph)
{
    QVector<int> numbers;
    for (const ZTMarkObject &object : graph.objects)
        numbers << object.penId;
    return numbers;
}

/** Whether both share the very same polygons: that is equality also for what is no number. */
bool haveSamePolygons(const ZTMarkObject &a, const ZTMarkObject &b)
{
    if (a.rect != b.rect || a.lines.size() != b.lines.size())
        return false;
    for (int i = 0; i < a.lines.size(); ++i) {
        if (a.lines.at(i).constData() != b.lines.at(i).constData())
            return false;
    }
    return true;
}

} // namespace

class tst_ZTPointSortOracle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void markGraphSort_randomGraphs_equalsThePlainChain_data()
    {
        QTest::addColumn<quintptr>("make");
        QTest::addColumn<int>("rounds");
        QTest::addColumn<int>("largest");
        // Some 30 stand in one leaf of the tree: smaller graphs alone would not try it.
        const auto add = [](const char *name, MakeCoordinate make, int rounds, int largest) {
            QTest::newRow(name) << reinterpret_cast<quintptr>(make) << testsupport::effort(rounds)
                                << largest;
        };
        add("scattered", inField, 1000, 200);
        add("scattered, large", inField, 20, 1500);
        add("ties", onLattice, 2000, 200);
        add("ties, large", onLattice, 40, 800);
        add("lattice", onFineLattice, 1300, 200);
        add("lattice, large", onFineLattice, 20, 1500);
        add("closer than rounding", closerThanRounding, 1500, 200);
        add("crowded", crowded, 60, 600);
        add("crowded at two places", crowdedAtTwoPlaces, 60, 600);
        add("of all sizes", ofAllSizes, 2000, 200);
        add("of all sizes, large", ofAllSizes, 20, 800);
        add("around the bound", aroundTheBound, 2000, 200);
        add("sometimes no number", sometimesNoNumber, 2000, 200);
    }

    void markGraphSort_randomGraphs_equalsThePlainChain()
    {
        QFETCH(quintptr, make);
        QFETCH(int, rounds);
        QFETCH(int, largest);
        const Oddities none;
        const Oddities single{0, 0, 0, 0};
        const Oddities barriers{0, 6, 0, 2};
        const Oddities everything{15, 15, 40, 3};
        Random random(20211);
        for (int round = 0; round < rounds; ++round) {
            const Oddities &odd = *std::array{&none, &single, &barriers, &everything}[round % 4];
            const ZTMarkGraph graph = randomGraph(random, 1 + below(random, largest),
                                                  reinterpret_cast<MakeCoordinate>(make), odd);
            for (int kind = 1; kind <= 5; ++kind)
                compare(graph, static_cast<EShapeSortType>(kind), round);
            if (QTest::currentTestFailed())
                return;
        }
    }

private:
    void compare(const ZTMarkGraph &graph, EShapeSortType kind, int round)
    {
        ZTMarkGraph plain = graph;
        testsupport::plainMarkGraphSort(plain, kind);
        ZTMarkGraph sorted = graph;
        ZTPointSort::getInstance()->setShapeMarkSort(kind);
        ZTPointSort::getInstance()->markGraphSort(sorted);
        QVERIFY2(
            pens(sorted) == pens(plain),
            qPrintable(QStringLiteral("round %1, kind %2").arg(round).arg(static_cast<int>(kind))));
        for (int i = 0; i < plain.objects.size(); ++i)
            QVERIFY(haveSamePolygons(sorted.objects.at(i), plain.objects.at(i)));
    }

    testsupport::SingletonGuard guard;
};

QTEST_GUILESS_MAIN(tst_ZTPointSortOracle)
#include "tst_ZTPointSortOracle.moc"
