#include <fontkit/StrokeSimplifier.h>

#include <QtCore/QtMath>
#include <QtTest/QTest>

#include <algorithm>
#include <cmath>
#include <random>

using fontkit::distanceToSegment;
using fontkit::StrokeSimplifier;

namespace {

using Stroke = QVector<QPointF>;

double distanceToStroke(const QPointF &point, const Stroke &stroke)
{
    double least = std::hypot(point.x() - stroke.first().x(), point.y() - stroke.first().y());
    for (int i = 1; i < stroke.size(); ++i)
        least = std::min(least, distanceToSegment(point, stroke.at(i - 1), stroke.at(i)));
    return least;
}

/** How far the points of one stroke are from another, at most. */
double farthest(const Stroke &points, const Stroke &from)
{
    double most = 0.0;
    for (const QPointF &point : points)
        most = std::max(most, distanceToStroke(point, from));
    return most;
}

Stroke circlePoints(double radius, int stepDeg, int count)
{
    Stroke points;
    for (int i = 0; i < count; ++i) {
        const double angle = qDegreesToRadians(static_cast<double>(i * stepDeg));
        points.append({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return points;
}

} // namespace

class tst_StrokeSimplifier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void distanceToSegment_isToTheNearestPoint_data();
    void distanceToSegment_isToTheNearestPoint();
    void simplified_leavesOutWhatIsWithinTolerance_data();
    void simplified_leavesOutWhatIsWithinTolerance();
    void simplified_manyPoints_takesNoRecursion();
    void smoothed_withoutReach_onlyDropsRepeats();
    void smoothed_straightLine_staysStraight();
    void smoothed_corner_staysAsItIs();
    void smoothed_turnBelowACorner_isRounded();
    void smoothed_pointsOfACircle_comeNearTheCircle();
    void smoothed_keepsEveryPointAndItsReach();
    void smoothed_shortStrokes_stay_data();
    void smoothed_shortStrokes_stay();
    void apply_staysWithinReachAndTolerance();
};

void tst_StrokeSimplifier::distanceToSegment_isToTheNearestPoint_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<double>("distance");
    QTest::newRow("beside") << QPointF(3, 4) << 4.0;
    QTest::newRow("on it") << QPointF(3, 0) << 0.0;
    QTest::newRow("before it") << QPointF(-3, 4) << 5.0;
    QTest::newRow("behind it") << QPointF(13, -4) << 5.0;
}

void tst_StrokeSimplifier::distanceToSegment_isToTheNearestPoint()
{
    QFETCH(QPointF, point);
    QFETCH(double, distance);
    QCOMPARE(distanceToSegment(point, {0, 0}, {10, 0}), distance);
    QCOMPARE(distanceToSegment({3, 4}, {0, 0}, {0, 0}), 5.0); // a segment without length
}

void tst_StrokeSimplifier::simplified_leavesOutWhatIsWithinTolerance_data()
{
    QTest::addColumn<Stroke>("stroke");
    QTest::addColumn<double>("tolerance");
    QTest::addColumn<Stroke>("expected");
    const Stroke roof = {{0, 0}, {5, 1}, {10, 0}};
    QTest::newRow("exactly the tolerance") << roof << 1.0 << Stroke({{0, 0}, {10, 0}});
    QTest::newRow("above the tolerance") << roof << 0.999 << roof;
    QTest::newRow("straight, none")
        << Stroke({{0, 0}, {2, 2}, {5, 5}}) << 0.0 << Stroke({{0, 0}, {5, 5}});
    const Stroke peak = {{0, 0}, {1, 0}, {4, 4}, {7, 0}, {10, 0}};
    QTest::newRow("beside a peak, 0.707 away") << peak << 0.7 << peak;
    QTest::newRow("beside a peak, within")
        << peak << 0.71 << Stroke({{0, 0}, {4, 4}, {7, 0}, {10, 0}});
    QTest::newRow("closed") << Stroke({{0, 0}, {4, 0}, {4, 4}, {0, 0}}) << 1.0
                            << Stroke({{0, 0}, {4, 0}, {4, 4}, {0, 0}});
    QTest::newRow("there and back")
        << Stroke({{0, 0}, {9, 0}, {3, 0}}) << 1.0 << Stroke({{0, 0}, {9, 0}, {3, 0}});
    QTest::newRow("one point") << Stroke({{3, 4}}) << 1.0 << Stroke({{3, 4}});
    QTest::newRow("none") << Stroke() << 1.0 << Stroke();
}

void tst_StrokeSimplifier::simplified_leavesOutWhatIsWithinTolerance()
{
    QFETCH(Stroke, stroke);
    QFETCH(double, tolerance);
    QFETCH(Stroke, expected);
    StrokeSimplifier simplifier;
    simplifier.tolerance = tolerance;
    QCOMPARE(simplifier.simplified(stroke), expected);
}

void tst_StrokeSimplifier::simplified_manyPoints_takesNoRecursion()
{
    Stroke comb;
    for (int i = 0; i < 3000; ++i)
        comb.append({static_cast<double>(i), i % 2 == 0 ? 0.0 : 10.0 + i});
    StrokeSimplifier simplifier;
    simplifier.tolerance = 0.5;
    QCOMPARE(simplifier.simplified(comb), comb);
}

void tst_StrokeSimplifier::smoothed_withoutReach_onlyDropsRepeats()
{
    const StrokeSimplifier simplifier;
    QCOMPARE(simplifier.smoothed({{0, 0}, {0, 0}, {5, 1}, {5, 1}, {10, 0}}),
             Stroke({{0, 0}, {5, 1}, {10, 0}}));
}

void tst_StrokeSimplifier::smoothed_straightLine_staysStraight()
{
    StrokeSimplifier simplifier;
    simplifier.smoothingReach = 5.0;
    const Stroke line = {{0, 0}, {4, 2}, {5, 2.5}, {10, 5}};
    for (const QPointF &point : simplifier.smoothed(line))
        QVERIFY(std::abs(point.y() - point.x() / 2) < 1e-12);
}

void tst_StrokeSimplifier::smoothed_corner_staysAsItIs()
{
    StrokeSimplifier simplifier;
    simplifier.smoothingReach = 5.0;
    const Stroke corner = {{0, 0}, {10, 0}, {10, 10}};
    QCOMPARE(simplifier.smoothed(corner), corner);
    simplifier.cornerDeg = 90.0;
    QCOMPARE(simplifier.smoothed(corner), corner);
}

void tst_StrokeSimplifier::smoothed_turnBelowACorner_isRounded()
{
    StrokeSimplifier simplifier;
    simplifier.smoothingReach = 5.0;
    simplifier.cornerDeg = 90.001;
    const Stroke smooth = simplifier.smoothed({{0, 0}, {10, 0}, {10, 10}});
    QVERIFY(smooth.size() > 3);
    // The curve swings out to the lower right of the corner.
    const auto isOutside = [](const QPointF &p) { return p.y() < -0.1 || p.x() > 10.1; };
    QVERIFY(std::any_of(smooth.begin(), smooth.end(), isOutside));
}

void tst_StrokeSimplifier::smoothed_pointsOfACircle_comeNearTheCircle()
{
    StrokeSimplifier simplifier;
    simplifier.smoothingReach = 100.0;
    const Stroke smooth = simplifier.smoothed(circlePoints(100.0, 30, 13));
    QVERIFY(smooth.size() > 50);
    for (int i = 8; i < smooth.size() - 8; ++i) { // the ends have a neighbour on one side only
        // A chord of 30 degrees is up to 3.4 inside.
        const double radius = std::hypot(smooth.at(i).x(), smooth.at(i).y());
        QVERIFY2(std::abs(radius - 100.0) < 0.5, qPrintable(QString::number(radius)));
    }
}

void tst_StrokeSimplifier::smoothed_keepsEveryPointAndItsReach()
{
    StrokeSimplifier simplifier;
    simplifier.smoothingReach = 0.25;
    const Stroke points = circlePoints(100.0, 40, 9);
    const Stroke smooth = simplifier.smoothed(points);
    for (const QPointF &point : points)
        QVERIFY(smooth.contains(point));
    const double most = farthest(smooth, points);
    QVERIFY(most <= 0.25 + 1e-9);
    QVERIFY(most >= 0.25 - 1e-9); // unbounded it would be some 6 away
}

void tst_StrokeSimplifier::smoothed_shortStrokes_stay_data()
{
    QTest::addColumn<Stroke>("stroke");
    QTest::newRow("none") << Stroke();
    QTest::newRow("a point") << Stroke({{1, 2}});
    QTest::newRow("a line") << Stroke({{1, 2}, {5, 9}});
}

void tst_StrokeSimplifier::smoothed_shortStrokes_stay()
{
    QFETCH(Stroke, stroke);
    StrokeSimplifier simplifier;
    simplifier.smoothingReach = 5.0;
    QCOMPARE(simplifier.smoothed(stroke), stroke);
}

void tst_StrokeSimplifier::apply_staysWithinReachAndTolerance()
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> step(-30.0, 50.0);
    const StrokeSimplifier simplifier{0.7, 2.0, 60.0};
    for (int run = 0; run < 200; ++run) {
        Stroke stroke = {{0, 0}};
        for (int i = 0; i < 12; ++i)
            stroke.append(stroke.last() + QPointF(step(random), step(random)));
        const Stroke result = simplifier.apply(stroke);
        QCOMPARE(result.first(), stroke.first());
        QCOMPARE(result.last(), stroke.last());
        QVERIFY(farthest(result, stroke) <= 2.0 + 1e-9);
        QVERIFY(farthest(stroke, result) <= 2.7 + 1e-9);
    }
}

QTEST_APPLESS_MAIN(tst_StrokeSimplifier)
#include "tst_StrokeSimplifier.moc"
