#include <jobkit/plan/JobTimes.h>

#include <QtTest/QTest>

#include <cmath>
#include <random>

using namespace jobkit;

namespace {

constexpr double kExact = 1e-9;

/** Lines "0,0 10,0; 20,0 30,0", each a piece with pens 1, 2, 1, 2, ... or all with pen 1. */
JobPlan planFrom(const QString &text, bool withTwoPens)
{
    JobPlan plan;
    const QStringList pieces = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &one : pieces) {
        PlanPiece piece;
        const QStringList points = one.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &point : points)
            piece.pointsMm.append({point.section(QLatin1Char(','), 0, 0).toDouble(),
                                   point.section(QLatin1Char(','), 1, 1).toDouble()});
        piece.object = plan.pieces.size();
        if (withTwoPens)
            piece.pen = 1 + plan.pieces.size() % 2;
        plan.pieces.append(piece);
    }
    return plan;
}

/** Pen 1 with 100 mm/s, pen 2 with 50 mm/s. */
QVector<Pen> pens()
{
    QVector<Pen> list{defaultPen(1), defaultPen(2)};
    list[0].speedMmPerS = 100.0;
    list[1].speedMmPerS = 50.0;
    return list;
}

MachineProfile galvo()
{
    MachineProfile profile;
    profile.kind = MachineKind::Galvo;
    profile.mostSpeedMmPerS = 5000.0;
    profile.jumpSpeedMmPerS = 1000.0;
    profile.jumpDelayUs = 300.0;
    profile.markDelayUs = 200.0;
    profile.cornerDelayUs = 100.0;
    return profile;
}

MachineProfile gantry()
{
    MachineProfile profile;
    profile.kind = MachineKind::Gantry;
    profile.mostSpeedMmPerS = 100.0;
    profile.jumpSpeedMmPerS = 100.0;
    profile.accelerationMmPerS2 = 1000.0;
    profile.junctionDeviationMm = 0.01;
    return profile;
}

JobPlan randomPlan(int count)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> at(-50.0, 50.0);
    JobPlan plan;
    for (int i = 0; i < count; ++i) {
        PlanPiece piece;
        for (unsigned k = random() % 6 + 1; k > 0; --k)
            piece.pointsMm.append({at(random), at(random)});
        if (i % 5 == 0)
            piece.pointsMm.append(piece.pointsMm.last());
        piece.pen = 1 + static_cast<int>(random() % 3);
        piece.object = i / 4;
        piece.passes = 1 + i % 2;
        plan.pieces.append(piece);
    }
    layOutPasses(&plan, PassOrder::WholeJob);
    return plan;
}

} // namespace

class tst_JobTimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void galvo_byHand_data();
    void galvo_byHand();
    void gantry_byHand_data();
    void gantry_byHand();
    void gantry_withoutLaserMode_stopsToSwitch();
    void gantry_withoutDeviation_stopsAtCorners();
    void fasterThanTheMachine_isReckonedWithItsSpeed();
    void sums_agreeByPenObjectAndPass();
    void vertices_neverGoBackAndEndAtTheTotal();
    void parts_beginWhereTheLastEnded();
    void playback_byHand();
    void playback_followsEveryVertex();
    void empty_takesNoTime();
    void unsound_takesNoTime();
};

void tst_JobTimes::galvo_byHand_data()
{
    QTest::addColumn<QString>("plan");
    QTest::addColumn<bool>("withHead");
    QTest::addColumn<bool>("twoPens");
    QTest::addColumn<double>("markS");
    QTest::addColumn<double>("jumpS");
    QTest::addColumn<double>("delayS");
    const auto row = [](const char *name, const char *plan, double mark, double jump, double delay,
                        bool head = false, bool two = false) {
        QTest::newRow(name) << QString::fromLatin1(plan) << head << two << mark << jump << delay;
    };
    // Delays in seconds: jump 0.0003, end of a polyline 0.0002, corner 0.0001 at most.
    row("line", "0,0 10,0", 0.1, 0.0, 0.0002);
    row("line with a point on it", "0,0 4,0 10,0", 0.1, 0.0, 0.0002);
    row("right angle", "0,0 10,0 10,10", 0.2, 0.0, 0.0002 + 0.00005);
    row("back", "0,0 10,0 0,0", 0.2, 0.0, 0.0002 + 0.0001);
    row("turn of 60 degrees", "0,0 10,0 15,8.660254037844387", 0.2, 0.0, 0.0002 + 0.000025);
    row("square: three inner corners", "0,0 10,0 10,10 0,10 0,0", 0.4, 0.0, 0.0002 + 0.00015);
    row("two lines", "0,0 10,0; 10,20 20,20", 0.2, 0.02, 0.0002 + 0.0003 + 0.0002);
    row("way from the head", "30,40 40,40", 0.1, 0.05, 0.0003 + 0.0002, true);
    row("head is there", "0,0 10,0", 0.1, 0.0, 0.0002, true);
    row("a micrometre is no jump", "0,0 10,0; 10.001,0 20.001,0", 0.2, 0.0, 0.0004);
    row("two micrometres are one", "0,0 10,0; 10.002,0 20.002,0", 0.2, 0.000002, 0.0007);
    // A millisecond on each, as long as a pen stays on a dot that says nothing else.
    row("dot", "0,0; 10,0", 0.0, 0.01, 0.0002 + 0.0003 + 0.0002 + 2 * 0.001);
    row("dot of two points", "0,0 0,0; 10,0", 0.0, 0.01, 0.0002 + 0.0003 + 0.0002 + 2 * 0.001);
    row("point twice", "0,0 10,0 10,0 10,10", 0.2, 0.0, 0.0002 + 0.00005);
    row("two pens", "0,0 10,0; 10,0 20,0", 0.1 + 0.2, 0.0, 0.0004, false, true);
}

void tst_JobTimes::galvo_byHand()
{
    QFETCH(QString, plan);
    QFETCH(bool, withHead);
    QFETCH(bool, twoPens);
    QFETCH(double, markS);
    QFETCH(double, jumpS);
    QFETCH(double, delayS);
    std::optional<QPointF> head;
    if (withHead)
        head = QPointF();
    const JobTimes times = jobTimes(planFrom(plan, twoPens), pens(), galvo(), head);
    QVERIFY2(std::abs(times.all.markS - markS) < kExact,
             qPrintable(QString::number(times.all.markS)));
    QVERIFY2(std::abs(times.all.jumpS - jumpS) < kExact,
             qPrintable(QString::number(times.all.jumpS)));
    QVERIFY2(std::abs(times.all.delayS - delayS) < kExact,
             qPrintable(QString::number(times.all.delayS, 'g', 12)));
}

void tst_JobTimes::gantry_byHand_data()
{
    QTest::addColumn<QString>("plan");
    QTest::addColumn<bool>("withHead");
    QTest::addColumn<bool>("twoPens");
    QTest::addColumn<double>("markS");
    QTest::addColumn<double>("jumpS");
    const auto row = [](const char *name, const char *plan, double mark, double jump,
                        bool head = false, bool two = false) {
        QTest::newRow(name) << QString::fromLatin1(plan) << head << two << mark << jump;
    };
    // With 1000 mm/s2, 100 mm/s are reached in 0.1 s over 5 mm.
    row("just reaches its speed", "0,0 10,0", 0.2, 0.0);
    row("holds its speed", "0,0 20,0", 0.3, 0.0);
    row("too short for its speed", "0,0 2.5,0", 0.1, 0.0); // to 50 mm/s and down
    row("straight on", "0,0 10,0 20,0", 0.3, 0.0);
    row("back", "0,0 10,0 0,0", 0.4, 0.0);
    // A right angle: s = sqrt(1/2), v2 = 10 s / (1 - s) = 10 (1 + sqrt 2), v = 4.913464727 mm/s.
    // From rest to v over 10 mm: ramps 9.987928932 mm, 0.195086535 s, the rest 0.000120711 s.
    row("right angle", "0,0 10,0 10,10", 2 * 0.1952072460, 0.0);
    // From v to v over 10 mm: ramps 9.975857864 mm, 0.190173071 s, the rest 0.000241421 s.
    row("square", "0,0 10,0 10,10 0,10 0,0", 2 * 0.1952072460 + 2 * 0.1904144919, 0.0);
    // s = sqrt(3/4), v2 = 10 s / (1 - s) = 64.641016151, v = 8.039963691 mm/s; ramps 9.967679492
    // mm, 0.191960036 s, the rest 0.000323205 s.
    row("turn of 60 degrees", "0,0 10,0 15,8.660254037844387", 2 * 0.1922832414, 0.0);
    row("jump straight on", "0,0 10,0; 20,0 30,0", 0.3, 0.1);
    row("jump back and forth", "0,0 10,0; 0,0 10,0", 0.4, 0.2);
    row("way from the head", "10,0 20,0", 0.15, 0.15, true);
    row("no jump of a micrometre", "0,0 10,0; 10.001,0 20.001,0", 0.3, 0.0);
    // Down to 50 mm/s at the joint: ramps 8.75 mm, 0.15 s, the rest 0.0125 s; then 8.75 mm at
    // 50 mm/s, 0.175 s, and 0.05 s to rest.
    row("slower pen", "0,0 10,0; 10,0 20,0", 0.1625 + 0.225, 0.0, false, true);
    row("dot", "0,0; 10,0", 0.0, 0.2);
    // Rest to rest on either side of it: 5 mm up to 100 mm/s and 5 mm down, 0.1 s each.
    row("dot on the way", "0,0 10,0; 10,0; 10,0 20,0", 0.4, 0.0);
}

void tst_JobTimes::gantry_byHand()
{
    QFETCH(QString, plan);
    QFETCH(bool, withHead);
    QFETCH(bool, twoPens);
    QFETCH(double, markS);
    QFETCH(double, jumpS);
    std::optional<QPointF> head;
    if (withHead)
        head = QPointF();
    const JobTimes times = jobTimes(planFrom(plan, twoPens), pens(), gantry(), head);
    QVERIFY2(std::abs(times.all.markS - markS) < 5e-9,
             qPrintable(QString::number(times.all.markS, 'g', 12)));
    QVERIFY2(std::abs(times.all.jumpS - jumpS) < 5e-9,
             qPrintable(QString::number(times.all.jumpS, 'g', 12)));
    const QString name = QLatin1String(QTest::currentDataTag());
    const int dots = name == QLatin1String("dot") ? 2 : int(name.contains(QLatin1String("dot")));
    QCOMPARE(times.all.delayS, 0.001 * dots);
}

void tst_JobTimes::gantry_withoutLaserMode_stopsToSwitch()
{
    MachineProfile profile = gantry();
    profile.isLaserMode = false;
    const JobTimes times =
        jobTimes(planFrom(QStringLiteral("0,0 10,0; 20,0 30,0"), false), pens(), profile);
    QVERIFY(std::abs(times.all.markS - 0.4) < kExact);
    QVERIFY(std::abs(times.all.jumpS - 0.2) < kExact);
}

void tst_JobTimes::gantry_withoutDeviation_stopsAtCorners()
{
    MachineProfile profile = gantry();
    profile.junctionDeviationMm = 0.0;
    const auto seconds = [&](const char *plan) {
        return jobTimes(planFrom(QString::fromLatin1(plan), false), pens(), profile).all.markS;
    };
    QVERIFY(std::abs(seconds("0,0 10,0 10,10") - 0.4) < kExact);
    QVERIFY(std::abs(seconds("0,0 10,0 20,0") - 0.3) < kExact);
}

void tst_JobTimes::fasterThanTheMachine_isReckonedWithItsSpeed()
{
    QVector<Pen> fast = pens();
    fast[0].speedMmPerS = 400.0;
    const JobPlan plan = planFrom(QStringLiteral("0,0 10,0"), false);
    QVERIFY(std::abs(jobTimes(plan, fast, gantry()).all.markS - 0.2) < kExact);
    MachineProfile slow = galvo();
    slow.mostSpeedMmPerS = 20.0;
    QVERIFY(std::abs(jobTimes(plan, fast, slow).all.markS - 0.5) < kExact);
}

void tst_JobTimes::sums_agreeByPenObjectAndPass()
{
    const JobPlan plan = randomPlan(200);
    for (const MachineProfile &profile : {galvo(), gantry()}) {
        const JobTimes times = jobTimes(plan, pens(), profile, QPointF(1, 1));
        const std::map<int, TimeSums> *const parts[] = {&times.byPen, &times.byObject,
                                                        &times.byPass};
        const size_t sizes[] = {3, 50, 2};
        for (size_t i = 0; i < 3; ++i) {
            QCOMPARE(parts[i]->size(), sizes[i]);
            TimeSums sum;
            for (const auto &part : *parts[i])
                sum += part.second;
            QVERIFY(std::abs(sum.markS - times.all.markS) < kExact);
            QVERIFY(std::abs(sum.jumpS - times.all.jumpS) < kExact);
            QVERIFY(std::abs(sum.delayS - times.all.delayS) < kExact);
        }
    }
}

void tst_JobTimes::vertices_neverGoBackAndEndAtTheTotal()
{
    const JobPlan plan = randomPlan(200);
    for (const MachineProfile &profile : {galvo(), gantry()}) {
        const JobTimes times = jobTimes(plan, pens(), profile, QPointF(1, 1));
        QCOMPARE(times.firstVertex.size(), size_t(plan.pieces.size() + 1));
        QCOMPARE(size_t(times.firstVertex.back()), times.vertexS.size());
        QVERIFY(std::is_sorted(times.vertexS.begin(), times.vertexS.end()));
        const double end = profile.kind == MachineKind::Galvo ? 0.0002 : 0.0;
        QVERIFY(std::abs(times.vertexS.back() + end - times.all.totalS()) < 1e-8);
    }
    const JobTimes hand =
        jobTimes(planFrom(QStringLiteral("0,0 10,0 10,10; 10,20 20,20"), false), pens(), galvo());
    const std::vector<double> expected{0.0, 0.1, 0.20005, 0.21055, 0.31055};
    for (size_t i = 0; i < expected.size(); ++i)
        QVERIFY2(std::abs(hand.vertexS[i] - expected[i]) < kExact,
                 qPrintable(QString::number(hand.vertexS[i], 'g', 12)));
    const JobTimes held =
        jobTimes(planFrom(QStringLiteral("0,0 10,0; 20,0 30,0"), false), pens(), gantry());
    const std::vector<double> along{0.0, 0.15, 0.25, 0.4};
    for (size_t i = 0; i < along.size(); ++i)
        QVERIFY2(std::abs(held.vertexS[i] - along[i]) < kExact,
                 qPrintable(QString::number(held.vertexS[i], 'g', 12)));
}

void tst_JobTimes::parts_beginWhereTheLastEnded()
{
    // One part 0.1 + 0.0002; the way back is 0.01 + 0.0003 more.
    const JobPlan plan = planFrom(QStringLiteral("0,0 10,0"), false);
    QVERIFY(std::abs(partsTime(plan, pens(), galvo(), {}, 1).totalS() - 0.1002) < kExact);
    const TimeSums three = partsTime(plan, pens(), galvo(), {}, 3);
    QVERIFY(std::abs(three.markS - 0.3) < kExact);
    QVERIFY(std::abs(three.jumpS - 0.02) < kExact);
    QVERIFY(std::abs(three.delayS - 0.0012) < kExact);
    // On a gantry the way back takes 0.2 s, as the part does.
    QVERIFY(std::abs(partsTime(plan, pens(), gantry(), {}, 3).totalS() - 1.0) < kExact);
}

void tst_JobTimes::playback_byHand()
{
    const JobPlan plan = planFrom(QStringLiteral("0,0 10,0; 10,20 20,20"), false);
    const JobTimes times = jobTimes(plan, pens(), galvo());
    const HeadPlace middle = headAt(plan, times, 0.05);
    QCOMPARE(middle.piece, 0);
    QVERIFY(middle.isMarking);
    QVERIFY(std::abs(middle.pointMm.x() - 5.0) < 1e-9);
    // The jump with both delays takes from 0.1 to 0.1205.
    const HeadPlace jumping = headAt(plan, times, 0.11025);
    QVERIFY(!jumping.isMarking);
    QCOMPARE(jumping.piece, 1);
    QVERIFY(std::abs(jumping.pointMm.y() - 10.0) < 1e-6);
    const HeadPlace end = headAt(plan, times, 99.0);
    QCOMPARE(end.piece, 1);
    QCOMPARE(end.pointMm, QPointF(20, 20));
    QVERIFY(!end.isMarking);
    QCOMPARE(headAt(plan, times, -1.0).pointMm, QPointF(0, 0));
    QCOMPARE(headAt({}, {}, 0.0).piece, -1);
}

void tst_JobTimes::playback_followsEveryVertex()
{
    const JobPlan plan = randomPlan(50);
    for (const MachineProfile &profile : {galvo(), gantry()}) {
        const JobTimes times = jobTimes(plan, pens(), profile, QPointF(60, 60));
        size_t vertex = 0;
        for (int i = 0; i < plan.pieces.size(); ++i) {
            for (const QPointF &point : plan.pieces[i].pointsMm) {
                const HeadPlace place = headAt(plan, times, times.vertexS[vertex++]);
                const QPointF away = place.pointMm - point;
                QVERIFY(std::hypot(away.x(), away.y()) < 1e-6);
            }
        }
    }
}

void tst_JobTimes::empty_takesNoTime()
{
    for (const MachineProfile &profile : {galvo(), gantry()}) {
        QCOMPARE(jobTimes({}, pens(), profile, QPointF()).all.totalS(), 0.0);
        QCOMPARE(partsTime({}, pens(), profile, {}, 5).totalS(), 0.0);
    }
}

void tst_JobTimes::unsound_takesNoTime()
{
    JobPlan damaged = planFrom(QStringLiteral("0,0 10,0;nan,0 30,0"), false);
    QVERIFY(!damaged.isSound());
    JobPlan hollow = planFrom(QStringLiteral("0,0 10,0"), false);
    QVERIFY(hollow.isSound());
    hollow.pieces.append(PlanPiece());
    for (const MachineProfile &profile : {galvo(), gantry()}) {
        for (const JobPlan &plan : {damaged, hollow}) {
            const JobTimes times = jobTimes(plan, pens(), profile, QPointF());
            QCOMPARE(times.all.totalS(), 0.0);
            QCOMPARE(int(times.firstVertex.size()), plan.pieces.size() + 1);
            QCOMPARE(partsTime(plan, pens(), profile, {}, 5).totalS(), 0.0);
            QVERIFY(headAt(plan, times, 1.0).piece >= 0);
        }
    }
}

QTEST_GUILESS_MAIN(tst_JobTimes)

#include "tst_JobTimes.moc"
