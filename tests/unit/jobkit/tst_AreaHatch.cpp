#include <jobkit/hatch/AreaHatch.h>

#include <QtCore/QtMath>
#include <QtTest/QTest>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <random>

using namespace jobkit;

namespace {

QPolygonF square(double x, double y, double size) { return QPolygonF(QRectF(x, y, size, size)); }

QPolygonF polygon(const QVector<QPointF> &points) { return {points}; }

double lengthOf(const QVector<QPolygonF> &runs)
{
    double length = 0.0;
    for (const QPolygonF &run : runs) {
        for (int i = 1; i < run.size(); ++i)
            length += std::hypot(run[i].x() - run[i - 1].x(), run[i].y() - run[i - 1].y());
    }
    return length;
}

double squareMm(const Area &area)
{
    double sum = 0.0;
    for (const QPolygonF &outline : area) {
        for (int i = 0; i < outline.size(); ++i) {
            const QPointF &a = outline[i];
            const QPointF &b = outline[(i + 1) % outline.size()];
            sum += (a.x() * b.y() - a.y() * b.x()) / 2.0;
        }
    }
    return std::abs(sum);
}

/** The distance of a point from outlines. */
double distanceTo(const Area &area, const QPointF &point)
{
    double best = 1e300;
    for (const QPolygonF &outline : area) {
        for (int i = 0; i < outline.size(); ++i) {
            const QPointF along = outline[(i + 1) % outline.size()] - outline[i];
            const double square = QPointF::dotProduct(along, along);
            const double share =
                square > 0.0
                    ? std::clamp(QPointF::dotProduct(point - outline[i], along) / square, 0.0, 1.0)
                    : 0.0;
            const QPointF off = point - outline[i] - along * share;
            best = std::min(best, std::hypot(off.x(), off.y()));
        }
    }
    return best;
}

bool isInside(const Area &area, const QPointF &point)
{
    bool inside = false;
    for (const QPolygonF &outline : area)
        inside = inside != outline.containsPoint(point, Qt::OddEvenFill);
    return inside;
}

QPolygonF star(int corners, double outer, double inner)
{
    QPolygonF points;
    for (int i = 0; i < 2 * corners; ++i) {
        const double angle = M_PI * i / corners;
        const double radius = i % 2 == 0 ? outer : inner;
        points.append({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return points;
}

} // namespace

class tst_AreaHatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_byHand();
    void lines_leaveHolesFree();
    void lines_turnEachPass();
    void lines_moveWithTheirArea();
    void cross_isTwoHatches();
    void contours_ofASquare_byHand();
    void contours_joinIntoOneRun();
    void contours_keepTheirDistance_data();
    void contours_keepTheirDistance();
    void contours_ofARing_fillBothSides();
    void inset_byHand();
    void united_byHand();
    void outOfRange_givesNothing();
    void manyEdges_takeNoTimeThatGrowsWithTheirSquare();
};

void tst_AreaHatch::lines_byHand()
{
    // Rows at y = 5 and whole spacings from there: 1, 3, 5, 7, 9.
    const QVector<QPolygonF> lines = lineHatch({square(0, 0, 10)}, {2.0});
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines[0], QPolygonF(QVector<QPointF>{{0, 1}, {10, 1}}));
    QCOMPARE(lines[1], QPolygonF(QVector<QPointF>{{10, 3}, {0, 3}}));
    QCOMPARE(lines[4], QPolygonF(QVector<QPointF>{{0, 9}, {10, 9}}));
    LineHatch oneWay{2.0};
    oneWay.isOneWay = true;
    const QVector<QPolygonF> same = lineHatch({square(0, 0, 10)}, oneWay);
    for (const QPolygonF &line : same)
        QVERIFY(line[0].x() < line[1].x());
    LineHatch inset{2.0};
    inset.insetMm = 1.5;
    const QVector<QPolygonF> less = lineHatch({square(0, 0, 10)}, inset);
    QCOMPARE(less.size(), 3);
    QVERIFY(std::abs(less[0][0].x() - 1.5) < 1e-4);
    QVERIFY(std::abs(less[0][1].x() - 8.5) < 1e-4);
}

void tst_AreaHatch::lines_leaveHolesFree()
{
    const QVector<QPolygonF> lines = lineHatch({square(0, 0, 10), square(2, 2, 6)}, {2.0});
    // Rows 1 and 9 whole, rows 3, 5 and 7 in two lines of 2 mm.
    QCOMPARE(lines.size(), 8);
    QVERIFY(std::abs(lengthOf(lines) - (20.0 + 12.0)) < 1e-9);
}

void tst_AreaHatch::lines_turnEachPass()
{
    LineHatch hatch{2.0};
    hatch.turnEachPassDeg = 90.0;
    const QVector<QPolygonF> second = lineHatch({square(0, 0, 10)}, hatch, 1);
    QCOMPARE(second.size(), 5);
    for (const QPolygonF &line : second)
        QVERIFY(std::abs(line[0].x() - line[1].x()) < 1e-9);
    LineHatch slanted{1.0, 45.0};
    const QVector<QPolygonF> lines = lineHatch({square(0, 0, 10)}, slanted);
    // Clockwise on the screen: they go down to the right. The longest is the diagonal.
    for (const QPolygonF &line : lines) {
        const QPointF step = line[1] - line[0];
        QVERIFY(std::abs(step.x() - step.y()) < 1e-9);
    }
    QCOMPARE(lines.size(), 15);
}

void tst_AreaHatch::lines_moveWithTheirArea()
{
    const QVector<QPolygonF> here = lineHatch({star(7, 10, 4)}, {0.3, 17.0});
    QPolygonF moved = star(7, 10, 4);
    moved.translate(100.0, -50.0);
    const QVector<QPolygonF> there = lineHatch({moved}, {0.3, 17.0});
    QCOMPARE(there.size(), here.size());
    QVERIFY(std::abs(lengthOf(here) - lengthOf(there)) < 1e-6);
}

void tst_AreaHatch::cross_isTwoHatches()
{
    const QVector<QPolygonF> lines = crossHatch({square(0, 0, 10)}, {2.0});
    QCOMPARE(lines.size(), 10);
    QVERIFY(std::abs(lengthOf(lines) - 100.0) < 1e-9);
}

void tst_AreaHatch::contours_ofASquare_byHand()
{
    // Squares with sides of 8, 6, 4 and 2 mm, and joins of 1 mm each.
    const QVector<QPolygonF> runs = contourHatch({square(0, 0, 10)}, 1.0);
    const double length = lengthOf(runs);
    QVERIFY2(length > 80.0 - 1e-3 && length < 80.0 + 3 * 1.5, qPrintable(QString::number(length)));
    // With an inset the first lies at the inset itself: 9, 7, 5, 3 and 1 mm.
    const double more = lengthOf(contourHatch({square(0, 0, 10)}, 1.0, 0.5));
    QVERIFY2(more > 100.0 - 1e-3 && more < 100.0 + 4 * 1.5, qPrintable(QString::number(more)));
}

void tst_AreaHatch::contours_joinIntoOneRun()
{
    QCOMPARE(contourHatch({star(40, 20, 19.5)}, 0.5).size(), 1);
    // Two separate areas are two runs.
    QCOMPARE(contourHatch({square(0, 0, 10), square(20, 0, 10)}, 1.0).size(), 2);
}

void tst_AreaHatch::contours_keepTheirDistance_data()
{
    QTest::addColumn<QVector<QPolygonF>>("area");
    QTest::newRow("square") << Area{square(0, 0, 20)};
    QTest::newRow("star") << Area{star(5, 20, 8)};
    QTest::newRow("circle") << Area{star(200, 20, 20)};
    QTest::newRow("ring") << Area{star(100, 20, 20), square(-5, -5, 10)};
}

void tst_AreaHatch::contours_keepTheirDistance()
{
    QFETCH(QVector<QPolygonF>, area);
    const double spacing = 0.4;
    const QVector<QPolygonF> runs = contourHatch(area, spacing);
    QVERIFY(!runs.isEmpty());
    double farthest = 0.0;
    for (const QPolygonF &run : runs) {
        for (const QPointF &point : run) {
            QVERIFY(isInside(area, point));
            const double level = distanceTo(area, point) / spacing;
            QVERIFY(level > 0.95);
            farthest = std::max(farthest, std::abs(level - std::round(level)));
        }
    }
    QVERIFY2(farthest < 0.05, qPrintable(QString::number(farthest)));
    // All of the area is within a spacing of some line: probe it.
    std::mt19937 random(2);
    std::uniform_real_distribution<double> at(-20.0, 20.0);
    Area open;
    for (const QPolygonF &run : runs)
        open.append(run);
    for (int i = 0; i < 300; ++i) {
        const QPointF probe(at(random), at(random));
        if (!isInside(area, probe) || distanceTo(area, probe) < spacing)
            continue;
        QVERIFY(distanceTo(open, probe) < spacing * 1.05);
    }
}

void tst_AreaHatch::contours_ofARing_fillBothSides()
{
    // A ring 4 mm wide: at 1 mm an outer and an inner contour, at 2 mm they vanish.
    const QVector<QPolygonF> runs = contourHatch({square(0, 0, 20), square(4, 4, 12)}, 1.5);
    QCOMPARE(runs.size(), 2);
}

void tst_AreaHatch::inset_byHand()
{
    const Area less = insetArea({square(0, 0, 10)}, 2.0);
    QCOMPARE(less.size(), 1);
    QVERIFY(std::abs(squareMm(less) - 36.0) < 1e-3);
    QVERIFY(insetArea({square(0, 0, 10)}, 5.1).isEmpty());
    QVERIFY(std::abs(squareMm(insetArea({square(0, 0, 10)}, 0.0)) - 100.0) < 1e-3);
}

void tst_AreaHatch::united_byHand()
{
    const Area one = unitedArea({square(0, 0, 10), square(5, 5, 10)});
    QCOMPARE(one.size(), 1);
    QVERIFY(std::abs(squareMm(one) - 175.0) < 1e-3);
    const Area apart = unitedArea({square(0, 0, 10), square(20, 0, 10)});
    QCOMPARE(apart.size(), 2);
    // A hole runs the other way round; it stays one.
    QPolygonF hole = square(2, 2, 6);
    std::reverse(hole.begin(), hole.end());
    const Area ring = unitedArea({square(0, 0, 10), hole});
    QCOMPARE(ring.size(), 2);
    QVERIFY(std::abs(squareMm(ring) - 64.0) < 1e-3);
}

void tst_AreaHatch::outOfRange_givesNothing()
{
    const Area area{square(0, 0, 10)};
    for (const double spacing : {0.0, -1.0, 0.004, 1001.0, std::nan("")}) {
        QVERIFY(lineHatch(area, {spacing}).isEmpty());
        QVERIFY(crossHatch(area, {spacing}).isEmpty());
        QVERIFY(contourHatch(area, spacing).isEmpty());
    }
    QVERIFY(contourHatch(area, 1.0, -1.0).isEmpty());
    QVERIFY(insetArea(area, std::nan("")).isEmpty());
    QVERIFY(lineHatch({square(0, 0, 20000)}, {1.0}).isEmpty());
    QVERIFY(contourHatch({polygon({{0, 0}, {std::nan(""), 1}, {1, 1}})}, 1.0).isEmpty());
    QVERIFY(lineHatch({}, {1.0}).isEmpty());
    QVERIFY(contourHatch({}, 1.0).isEmpty());
    QVERIFY(
        contourHatch({polygon({}), polygon({{1, 1}}), polygon({{1, 1}, {2, 2}})}, 0.1).isEmpty());
    // Of too many lines there is none at all.
    QVERIFY(lineHatch({star(5000, 9000, 10)}, {0.005}).isEmpty());
}

void tst_AreaHatch::manyEdges_takeNoTimeThatGrowsWithTheirSquare()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> noise(-0.01, 0.01);
    QPolygonF outline = star(10000, 50, 49.9);
    for (QPointF &point : outline)
        point += QPointF(noise(random), noise(random));
    QCOMPARE(outline.size(), 20000);
    const std::clock_t start = std::clock();
    const QVector<QPolygonF> runs = contourHatch({outline}, 0.1);
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
    // The area over the spacing.
    const double expected = M_PI * 49.95 * 49.95 / 0.1;
    QVERIFY(std::abs(lengthOf(runs) / expected - 1.0) < 0.02);
    // The processor's time: about one with optimisation, and several where a check is built in.
    QVERIFY2(seconds < 5.0, qPrintable(QString::number(seconds)));
}

QTEST_GUILESS_MAIN(tst_AreaHatch)

#include "tst_AreaHatch.moc"
