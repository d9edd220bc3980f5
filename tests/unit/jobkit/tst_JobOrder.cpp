#include <jobkit/plan/JobOrder.h>

#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

using namespace jobkit;

namespace {

PlanPiece piece(const QVector<QPointF> &points, int object = 0)
{
    PlanPiece made;
    made.pointsMm = points;
    made.object = object;
    return made;
}

QPolygonF square(double x, double y, double size) { return QPolygonF(QRectF(x, y, size, size)); }

/** Open lines, closed squares and dots, scattered. */
JobPlan randomPlan(std::mt19937 *random, int count)
{
    std::uniform_real_distribution<double> at(-50.0, 50.0);
    JobPlan plan;
    for (int i = 0; i < count; ++i) {
        const QPointF from(at(*random), at(*random));
        if (i % 3 == 0)
            plan.pieces.append(piece(square(from.x(), from.y(), 5.0), i));
        else if (i % 7 == 1)
            plan.pieces.append(piece(QVector<QPointF>{from}, i));
        else
            plan.pieces.append(piece({from, {at(*random), at(*random)}, {at(*random), 0.0}}, i));
    }
    return plan;
}

using Segment = std::array<double, 5>;

/** Every segment with its object, whichever way it is marked. */
std::vector<Segment> segments(const JobPlan &plan)
{
    std::vector<Segment> all;
    for (const PlanPiece &one : plan.pieces) {
        for (int i = 0; i < one.pointsMm.size(); ++i) {
            QPointF a = one.pointsMm[std::max(0, i - 1)];
            QPointF b = one.pointsMm[i];
            if (i == 0 && one.pointsMm.size() > 1)
                continue;
            if (std::make_pair(b.x(), b.y()) < std::make_pair(a.x(), a.y()))
                std::swap(a, b);
            all.push_back({a.x(), a.y(), b.x(), b.y(), double(one.object)});
        }
    }
    std::sort(all.begin(), all.end());
    return all;
}

double jumpsFrom(const JobPlan &plan, const std::optional<QPointF> &head)
{
    if (!head)
        return plan.jumpLengthMm();
    const QPointF step = plan.pieces.first().pointsMm.first() - *head;
    return plan.jumpLengthMm() + std::hypot(step.x(), step.y());
}

/** The ways in which a piece can be marked: its ends, or each point of a closed one. */
std::vector<std::pair<QPointF, QPointF>> waysOf(const PlanPiece &one)
{
    std::vector<std::pair<QPointF, QPointF>> ways;
    if (one.isClosed()) {
        for (const QPointF &point : one.pointsMm)
            ways.emplace_back(point, point);
    } else {
        ways.emplace_back(one.pointsMm.first(), one.pointsMm.last());
        ways.emplace_back(one.pointsMm.last(), one.pointsMm.first());
    }
    return ways;
}

/** The shortest of all orders, by trying them. */
double shortest(const JobPlan &plan, std::vector<bool> *used, const QPointF *at, size_t done)
{
    if (done == used->size())
        return 0.0;
    double best = 1e300;
    for (size_t i = 0; i < used->size(); ++i) {
        if ((*used)[i])
            continue;
        (*used)[i] = true;
        for (const auto &[entry, exit] : waysOf(plan.pieces[static_cast<int>(i)])) {
            const double jump =
                at == nullptr ? 0.0 : std::hypot(entry.x() - at->x(), entry.y() - at->y());
            if (jump < best)
                best = std::min(best, jump + shortest(plan, used, &exit, done + 1));
        }
        (*used)[i] = false;
    }
    return best;
}

} // namespace

class tst_JobOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void handMade_best();
    void smallPlans_getTheOptimum();
    void randomPlans_keepTheirSegmentsAndNeverGetLonger();
    void sameSeedAndSteps_giveTheSameOrder();
    void oneWayPieces_keepTheirDirection();
    void asDrawn_changesNothing();
    void stages_penThenHatchThenInner();
    void hatchesWithAMoment_comeBeforeOrAfter_whateverTheirPen();
    void cancelled_keepsTheBestSoFar();
    void emptyAndSingle_stay();
    void unsoundPlan_stays();
    void manyPieces_withinTheTime();
};

void tst_JobOrder::hatchesWithAMoment_comeBeforeOrAfter_whateverTheirPen()
{
    JobPlan plan;
    const auto add = [&plan](int hatch, int pen, hostkit::HatchMoment moment) {
        PlanPiece made = piece({{0, double(plan.pieces.size())}, {5, 3}}, plan.pieces.size());
        made.hatch = hatch;
        made.pen = pen;
        made.moment = moment;
        plan.pieces.append(made);
    };
    add(0, 2, hostkit::HatchMoment::Any);
    add(1, 1, hostkit::HatchMoment::AfterOutline);
    add(2, 9, hostkit::HatchMoment::BeforeOutline);
    add(0, 1, hostkit::HatchMoment::Any);
    add(1, 3, hostkit::HatchMoment::Any);
    OrderOptions options;
    options.isPenByPen = true;
    for (const OrderKind kind : {OrderKind::Nearest, OrderKind::Best}) {
        JobPlan ordered = plan;
        options.kind = kind;
        orderPlan(&ordered, options);
        QVector<int> objects;
        for (const PlanPiece &one : qAsConst(ordered.pieces))
            objects.append(one.object);
        QCOMPARE(objects, (QVector<int>{2, 3, 0, 4, 1}));
    }
}

void tst_JobOrder::handMade_best()
{
    // Three lines side by side, drawn all downward and out of order.
    JobPlan plan;
    plan.pieces = {piece({{0, 0}, {0, 10}}, 0), piece({{4, 0}, {4, 10}}, 2),
                   piece({{2, 0}, {2, 10}}, 1)};
    OrderOptions options;
    options.headMm = QPointF(0, 0);
    const OrderResult result = orderPlan(&plan, options);
    QCOMPARE(result.jumpsAfterMm, 4.0);
    QCOMPARE(result.jumpsBeforeMm, std::hypot(4.0, 10.0) + std::hypot(2.0, 10.0));
    QCOMPARE(plan.pieces[1].object, 1);
    QVERIFY(plan.pieces[1].isReversed);
    QCOMPARE(plan.pieces[1].pointsMm, QPolygonF(QVector<QPointF>{{2, 10}, {2, 0}}));
    QCOMPARE(plan.pieces[2].pointsMm, QPolygonF(QVector<QPointF>{{4, 0}, {4, 10}}));
    QVERIFY(!result.isCutShort);

    // A closed one begins at the corner on the way.
    JobPlan corner;
    corner.pieces = {piece({{0, 0}, {10, 10}}, 0), piece(square(11, 0, 10), 1)};
    OrderOptions nearest;
    nearest.kind = OrderKind::Nearest;
    orderPlan(&corner, nearest);
    QCOMPARE(corner.pieces[1].pointsMm,
             QPolygonF(QVector<QPointF>{{11, 10}, {11, 0}, {21, 0}, {21, 10}, {11, 10}}));
    QCOMPARE(corner.jumpLengthMm(), 1.0);
}

void tst_JobOrder::smallPlans_getTheOptimum()
{
    std::mt19937 random(5);
    for (int round = 0; round < 150; ++round) {
        JobPlan plan = randomPlan(&random, 1 + round % 6);
        std::vector<bool> used(static_cast<size_t>(plan.pieces.size()), false);
        const QPointF head(3.0, -2.0);
        const bool hasHead = round % 2 == 0;
        const double optimum = shortest(plan, &used, hasHead ? &head : nullptr, 0);
        OrderOptions options;
        if (hasHead)
            options.headMm = head;
        const OrderResult result = orderPlan(&plan, options);
        QVERIFY2(std::abs(jumpsFrom(plan, options.headMm) - optimum) < 1e-9,
                 qPrintable(QStringLiteral("round %1: %2, optimum %3")
                                .arg(round)
                                .arg(result.jumpsAfterMm)
                                .arg(optimum)));
    }
}

void tst_JobOrder::randomPlans_keepTheirSegmentsAndNeverGetLonger()
{
    std::mt19937 random(6);
    for (int round = 0; round < 2000; ++round) {
        JobPlan plan = randomPlan(&random, static_cast<int>(random() % 25));
        for (PlanPiece &one : plan.pieces) {
            one.isOneWay = random() % 8 == 0;
            one.pen = static_cast<int>(random() % 3);
            one.hatch = static_cast<int>(random() % 3);
        }
        const std::vector<Segment> before = segments(plan);
        OrderOptions options;
        options.kind = round % 3 == 0 ? OrderKind::Nearest : OrderKind::Best;
        options.isPenByPen = random() % 2 == 0;
        options.isInnerFirst = random() % 2 == 0;
        options.hatchPlace = static_cast<HatchPlace>(random() % 3);
        if (random() % 2 == 0)
            options.headMm = QPointF(-60.0, 0.0);
        const OrderResult result = orderPlan(&plan, options);
        QCOMPARE(segments(plan), before);
        QVERIFY(result.jumpsAfterMm <= result.jumpsBeforeMm);
        if (!plan.pieces.isEmpty())
            QCOMPARE(jumpsFrom(plan, options.headMm), result.jumpsAfterMm);
    }
}

void tst_JobOrder::sameSeedAndSteps_giveTheSameOrder()
{
    std::mt19937 random(7);
    const JobPlan drawn = randomPlan(&random, 300);
    OrderOptions options;
    options.mostSteps = 2000;
    JobPlan first = drawn;
    JobPlan second = drawn;
    orderPlan(&first, options);
    orderPlan(&second, options);
    for (int i = 0; i < drawn.pieces.size(); ++i)
        QCOMPARE(first.pieces[i].pointsMm, second.pieces[i].pointsMm);
}

void tst_JobOrder::oneWayPieces_keepTheirDirection()
{
    std::mt19937 random(8);
    JobPlan plan = randomPlan(&random, 60);
    std::vector<QPolygonF> drawn(60);
    for (PlanPiece &one : plan.pieces) {
        one.isOneWay = one.object % 2 == 0;
        drawn[static_cast<size_t>(one.object)] = one.pointsMm;
    }
    orderPlan(&plan, {});
    for (const PlanPiece &one : plan.pieces) {
        if (one.isOneWay && !one.isClosed())
            QCOMPARE(one.pointsMm, drawn[static_cast<size_t>(one.object)]);
    }
}

void tst_JobOrder::asDrawn_changesNothing()
{
    std::mt19937 random(9);
    JobPlan plan = randomPlan(&random, 20);
    const JobPlan drawn = plan;
    OrderOptions options;
    options.kind = OrderKind::AsDrawn;
    const OrderResult result = orderPlan(&plan, options);
    QCOMPARE(result.jumpsAfterMm, drawn.jumpLengthMm());
    for (int i = 0; i < drawn.pieces.size(); ++i)
        QCOMPARE(plan.pieces[i].pointsMm, drawn.pieces[i].pointsMm);
}

void tst_JobOrder::stages_penThenHatchThenInner()
{
    JobPlan plan;
    plan.pieces = {piece(square(0, 0, 30), 0), piece(square(5, 5, 20), 1),
                   piece(square(10, 10, 5), 2), piece({{1, 1}, {2, 1}}, 3),
                   piece({{40, 0}, {41, 0}}, 4)};
    plan.pieces[3].hatch = 1;
    plan.pieces[4].pen = 0;
    const auto objects = [&](const OrderOptions &options) {
        JobPlan ordered = plan;
        orderPlan(&ordered, options);
        QVector<int> result;
        for (const PlanPiece &one : qAsConst(ordered.pieces))
            result.append(one.object);
        return result;
    };
    OrderOptions options;
    options.kind = OrderKind::AsDrawn;
    options.isPenByPen = true;
    QCOMPARE(objects(options), QVector<int>({4, 0, 1, 2, 3}));
    options.hatchPlace = HatchPlace::BeforeOutlines;
    QCOMPARE(objects(options), QVector<int>({4, 3, 0, 1, 2}));
    options.hatchPlace = HatchPlace::AfterOutlines;
    QCOMPARE(objects(options), QVector<int>({4, 0, 1, 2, 3}));
    options.isInnerFirst = true;
    QCOMPARE(objects(options), QVector<int>({4, 2, 1, 0, 3}));
    options.kind = OrderKind::Best;
    QCOMPARE(objects(options), QVector<int>({4, 2, 1, 0, 3}));
}

void tst_JobOrder::cancelled_keepsTheBestSoFar()
{
    std::mt19937 random(10);
    JobPlan plan = randomPlan(&random, 2000);
    const std::vector<Segment> before = segments(plan);
    OrderOptions options;
    int asked = 0;
    double last = 0.0;
    options.progress = [&](double done) {
        last = done;
        return ++asked < 3;
    };
    const OrderResult result = orderPlan(&plan, options);
    QCOMPARE(asked, 3);
    QVERIFY(last > 0.0 && last <= 1.0);
    QVERIFY(result.isCutShort);
    QVERIFY(result.jumpsAfterMm < result.jumpsBeforeMm);
    QCOMPARE(segments(plan), before);
}

void tst_JobOrder::emptyAndSingle_stay()
{
    JobPlan plan;
    QCOMPARE(orderPlan(&plan, {}).jumpsAfterMm, 0.0);
    plan.pieces = {piece({{1, 2}, {3, 4}})};
    QCOMPARE(orderPlan(&plan, {}).jumpsAfterMm, 0.0);
    QCOMPARE(plan.pieces.size(), 1);
}

void tst_JobOrder::unsoundPlan_stays()
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double endless = std::numeric_limits<double>::infinity();
    for (const PlanPiece &bad : {piece({{none, 0}, {1, 1}}), piece({{5, 5}, {0, none}}),
                                 piece({{endless, 0}}), piece(QVector<QPointF>())}) {
        JobPlan plan;
        plan.pieces = {piece({{30, 0}, {40, 0}}), bad, piece({{1, 0}, {2, 0}})};
        QVERIFY(!plan.isSound());
        for (const OrderKind kind : {OrderKind::Nearest, OrderKind::Best}) {
            OrderOptions options;
            options.kind = kind;
            const OrderResult result = orderPlan(&plan, options);
            QCOMPARE(result.jumpsBeforeMm, 0.0);
            QCOMPARE(result.jumpsAfterMm, 0.0);
            QCOMPARE(plan.pieces.size(), 3);
            QCOMPARE(plan.pieces[0].pointsMm.first(), QPointF(30, 0));
            QCOMPARE(plan.pieces[1].pointsMm.size(), bad.pointsMm.size());
            QCOMPARE(plan.pieces[2].pointsMm.first(), QPointF(1, 0));
        }
    }
}

void tst_JobOrder::manyPieces_withinTheTime()
{
    std::mt19937 random(11);
    JobPlan plan = randomPlan(&random, 20000);
    const std::vector<Segment> before = segments(plan);
    OrderOptions options;
    options.budgetMs = 1500;
    const OrderResult result = orderPlan(&plan, options);
    QVERIFY(result.jumpsAfterMm < result.jumpsBeforeMm / 20.0);
    QCOMPARE(segments(plan), before);
}

QTEST_GUILESS_MAIN(tst_JobOrder)

#include "tst_JobOrder.moc"
