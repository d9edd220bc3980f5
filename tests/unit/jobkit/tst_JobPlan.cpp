#include <jobkit/marks/MarkGraphItems.h>
#include <jobkit/plan/JobPlan.h>

#include <QtTest/QTest>

#include <random>

using namespace jobkit;

namespace {

QPolygonF polygon(const QVector<QPointF> &points) { return {points}; }

} // namespace

class tst_JobPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runs_goOnWhereTheLineBeforeEnded();
    void plan_holdsEveryRunOnceInOrder();
    void pensThatAreOff_areLeftOut();
    void passes_ofTheWholeJob();
    void passes_objectByObject();
    void hatchesWithAMoment_goWithAllTheirPasses();
    void turns_arePassesOfTheirOwn();
    void lengths_byHand();
    void graph_losesAndDoublesNothing();
};

void tst_JobPlan::runs_goOnWhereTheLineBeforeEnded()
{
    const QVector<QPolygonF> runs = hatchRuns(
        {{0, 0, 10, 0}, {10, 0, 10, 1}, {10, 1, 0, 1}, {0, 2, 10, 2}, {10, 2.0000001, 0, 3}});
    QCOMPARE(runs.size(), 3);
    QCOMPARE(runs[0], polygon({{0, 0}, {10, 0}, {10, 1}, {0, 1}}));
    QCOMPARE(runs[1], polygon({{0, 2}, {10, 2}}));
    QVERIFY(hatchRuns({}).isEmpty());
}

void tst_JobPlan::plan_holdsEveryRunOnceInOrder()
{
    JobItem item;
    item.object = 5;
    item.pen = 2;
    item.outlinesMm = {polygon({{0, 0}, {1, 0}}), polygon({}), polygon({{3, 3}})};
    JobHatch hatch;
    hatch.pen = 4;
    hatch.isOneWay = true;
    hatch.runsMm = {polygon({{0, 0}, {1, 1}})};
    item.hatches = {hatch, hatch};
    const JobPlan plan = planOf({item}, defaultPens());
    QCOMPARE(plan.pieces.size(), 4);
    QCOMPARE(plan.pieces[0].pen, 2);
    QCOMPARE(plan.pieces[0].hatch, 0);
    QCOMPARE(plan.pieces[1].pointsMm, polygon({{3, 3}}));
    QCOMPARE(plan.pieces[2].pen, 4);
    QCOMPARE(plan.pieces[2].hatch, 1);
    QVERIFY(plan.pieces[2].isOneWay);
    QCOMPARE(plan.pieces[3].hatch, 2);
    QCOMPARE(plan.pieces[3].object, 5);
}

void tst_JobPlan::pensThatAreOff_areLeftOut()
{
    QVector<Pen> pens = defaultPens();
    pens[0].isOn = false;
    JobItem item;
    item.outlinesMm = {polygon({{0, 0}, {1, 0}})};
    JobHatch hatch;
    hatch.pen = 2;
    hatch.runsMm = {polygon({{0, 0}, {1, 1}})};
    item.hatches = {hatch};
    const JobPlan plan = planOf({item}, pens);
    QCOMPARE(plan.pieces.size(), 1);
    QCOMPARE(plan.pieces[0].hatch, 1);
    // A pen that the list does not hold is on.
    item.pen = 77;
    QCOMPARE(planOf({item}, pens).pieces.size(), 2);
}

static QVector<QPair<int, int>> objectsAndPasses(PassOrder order)
{
    QVector<Pen> pens = defaultPens();
    pens[1].passes = 2;
    QVector<JobItem> items(3);
    for (int i = 0; i < 3; ++i) {
        items[i].object = i;
        items[i].pen = i == 1 ? 1 : 2;
        items[i].outlinesMm = {polygon({{0, 0}, {1, 0}})};
    }
    JobHatch hatch;
    hatch.pen = 2;
    hatch.passes = 2;
    hatch.runsMm = {polygon({{0, 0}, {1, 1}})};
    items[1].hatches = {hatch};
    JobPlan plan = planOf(items, pens);
    layOutPasses(&plan, order);
    QVector<QPair<int, int>> result;
    for (const PlanPiece &piece : qAsConst(plan.pieces))
        result.append({piece.object * 10 + piece.hatch, piece.pass});
    return result;
}

void tst_JobPlan::hatchesWithAMoment_goWithAllTheirPasses()
{
    JobItem item;
    item.outlinesMm = {polygon({{0, 0}, {1, 0}})};
    JobHatch after;
    after.moment = hostkit::HatchMoment::AfterOutline;
    after.passes = 2;
    after.runsMm = {polygon({{0, 0}, {1, 1}})};
    JobHatch before = after;
    before.moment = hostkit::HatchMoment::BeforeOutline;
    item.hatches = {after, before};
    QVector<Pen> pens = defaultPens();
    pens[0].passes = 2;
    JobPlan plan = planOf({item}, pens);
    layOutPasses(&plan, PassOrder::WholeJob);
    QVector<QPair<int, int>> result;
    for (const PlanPiece &piece : qAsConst(plan.pieces))
        result.append({piece.hatch, piece.pass});
    const QVector<QPair<int, int>> expected{{2, 1}, {2, 2}, {2, 3}, {2, 4}, {0, 1},
                                            {0, 2}, {1, 1}, {1, 2}, {1, 3}, {1, 4}};
    QCOMPARE(result, expected);
}

// Three turns, each marked twice by its pen: six passes, the second turn in the third and fourth.
void tst_JobPlan::turns_arePassesOfTheirOwn()
{
    JobItem item;
    item.outlinesMm = {polygon({{0, 0}, {1, 0}})};
    for (int turn = 1; turn <= 3; ++turn) {
        JobHatch hatch;
        hatch.number = 1;
        hatch.turn = turn;
        hatch.runsMm = {polygon({{0, 0}, {double(turn), 1}})};
        item.hatches.append(hatch);
    }
    QVector<Pen> pens = defaultPens();
    pens[0].passes = 2;
    JobPlan plan = planOf({item}, pens);
    QCOMPARE(plan.pieces.size(), 4);
    layOutPasses(&plan, PassOrder::WholeJob);
    QVector<QPair<int, int>> result; // pass, and turn by its end
    for (const PlanPiece &piece : qAsConst(plan.pieces)) {
        if (piece.hatch == 1)
            result.append({piece.pass, int(piece.pointsMm.last().x())});
    }
    const QVector<QPair<int, int>> expected{{1, 1}, {2, 1}, {3, 2}, {4, 2}, {5, 3}, {6, 3}};
    QCOMPARE(result, expected);
}

void tst_JobPlan::passes_ofTheWholeJob()
{
    const QVector<QPair<int, int>> expected{{0, 1},  {10, 1}, {11, 1}, {20, 1}, {0, 2},
                                            {11, 2}, {20, 2}, {11, 3}, {11, 4}};
    QCOMPARE(objectsAndPasses(PassOrder::WholeJob), expected);
}

void tst_JobPlan::passes_objectByObject()
{
    const QVector<QPair<int, int>> expected{{0, 1},  {0, 2},  {10, 1}, {11, 1}, {11, 2},
                                            {11, 3}, {11, 4}, {20, 1}, {20, 2}};
    QCOMPARE(objectsAndPasses(PassOrder::EachObject), expected);
}

void tst_JobPlan::lengths_byHand()
{
    JobPlan plan;
    QCOMPARE(plan.jumpLengthMm(), 0.0);
    QVERIFY(plan.boundsMm().isNull());
    plan.pieces.resize(2);
    plan.pieces[0].pointsMm = polygon({{0, 0}, {3, 4}, {3, 6}});
    plan.pieces[1].pointsMm = polygon({{0, 2}, {-1, 2}});
    QCOMPARE(plan.markLengthMm(), 8.0);
    QCOMPARE(plan.jumpLengthMm(), 5.0);
    QCOMPARE(plan.segmentCount(), 3);
    QCOMPARE(plan.boundsMm(), QRectF(-1, 0, 4, 6));
    QVERIFY(!plan.pieces[0].isClosed());
    plan.pieces[0].pointsMm.append({0, 0});
    QVERIFY(plan.pieces[0].isClosed());
    plan.pieces[0].pointsMm.last().setX(1e-14);
    QVERIFY(!plan.pieces[0].isClosed());
}

void tst_JobPlan::graph_losesAndDoublesNothing()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> at(-20000.0, 20000.0);
    ZTMarkGraph graph;
    int segments = 0;
    for (int i = 0; i < 30; ++i) {
        ZTMarkObject object;
        object.penId = 1 + i % 4;
        for (unsigned k = random() % 3; k > 0; --k) {
            object.lines.append(QPolygonF(QRectF(at(random), at(random), 50, 70)));
            segments += 4;
        }
        QPointF end(at(random), at(random));
        for (unsigned k = random() % 6; k > 0; --k) {
            const QPointF next(at(random), at(random));
            object.fillLines.append(QLineF(random() % 2 == 0 ? end : next * 0.5, next));
            end = next;
            ++segments;
        }
        graph.objects.append(object);
    }
    const QVector<JobItem> items = itemsOf(graph, {500.0});
    QCOMPARE(items.size(), 30);
    const JobPlan plan = planOf(items, defaultPens());
    QCOMPARE(plan.segmentCount(), qint64(segments));
    for (int i = 0; i < items.size(); ++i) {
        QCOMPARE(items[i].pen, graph.objects[i].penId);
        QCOMPARE(items[i].outlinesMm.size(), graph.objects[i].lines.size());
        QVector<QLineF> lines;
        for (const JobHatch &hatch : items[i].hatches) {
            for (const QPolygonF &run : hatch.runsMm) {
                for (int k = 1; k < run.size(); ++k)
                    lines.append({run[k - 1] * 500.0, run[k] * 500.0});
            }
        }
        QCOMPARE(lines, graph.objects[i].fillLines);
    }
    QCOMPARE(items[0].outlinesMm.value(0).value(0) * 500.0,
             graph.objects[0].lines.value(0).value(0));
}

QTEST_GUILESS_MAIN(tst_JobPlan)

#include "tst_JobPlan.moc"
