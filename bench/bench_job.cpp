// Plan, order, time, hatch and files of a job at growing sizes.

#include <jobkit/hatch/AreaHatch.h>
#include <jobkit/plan/JobOrder.h>
#include <jobkit/plan/JobTimes.h>
#include <jobkit/writers/JobWriter.h>

#include <QtCore/QIODevice>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace {

using namespace jobkit;

/** Takes everything and keeps nothing. */
class Sink : public QIODevice
{
public:
    Sink() { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override { return size; }
};

/** Squares and short lines over 100 mm, half each. */
JobPlan scattered(int pieces)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> at(-50.0, 50.0);
    JobPlan plan;
    for (int i = 0; i < pieces; ++i) {
        PlanPiece piece;
        const QPointF from(at(random), at(random));
        if (i % 2 == 0)
            piece.pointsMm = QPolygonF(QRectF(from, QSizeF(0.2, 0.2)));
        else
            piece.pointsMm = QVector<QPointF>{from, from + QPointF(at(random), at(random)) * 0.01};
        piece.object = i;
        plan.pieces.append(piece);
    }
    return plan;
}

/** Polylines of ten segments each. */
JobPlan segments(int count)
{
    JobPlan plan = scattered(count / 10);
    for (PlanPiece &piece : plan.pieces) {
        const QPointF from = piece.pointsMm.first();
        piece.pointsMm.clear();
        for (int i = 0; i <= 10; ++i)
            piece.pointsMm.append(from + QPointF(0.1 * i, i % 2 * 0.1));
    }
    return plan;
}

MachineProfile profileOf(MachineKind kind)
{
    MachineProfile profile;
    profile.kind = kind;
    return profile;
}

void order(benchmark::State &state, OrderKind kind, qint64 steps)
{
    const JobPlan drawn = scattered(static_cast<int>(state.range(0)));
    OrderOptions options;
    options.kind = kind;
    options.mostSteps = steps;
    OrderResult result;
    for (auto _ : state) {
        JobPlan plan = drawn;
        result = orderPlan(&plan, options);
    }
    state.counters["mm"] = result.jumpsAfterMm;
}

void BM_OrderNearest(benchmark::State &state) { order(state, OrderKind::Nearest, 0); }
void BM_OrderExchanged(benchmark::State &state) { order(state, OrderKind::Best, 0); }
void BM_OrderBest(benchmark::State &state) { order(state, OrderKind::Best, -1); }

void times(benchmark::State &state, MachineKind kind)
{
    const JobPlan plan = segments(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(jobTimes(plan, defaultPens(), profileOf(kind)).all.markS);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_GalvoTime(benchmark::State &state) { times(state, MachineKind::Galvo); }
void BM_GantryTime(benchmark::State &state) { times(state, MachineKind::Gantry); }

void BM_Write(benchmark::State &state)
{
    const JobFile job{{segments(static_cast<int>(state.range(0)))},
                      defaultPens(),
                      profileOf(MachineKind::Gantry),
                      QString(),
                      {}};
    for (auto _ : state) {
        Sink sink;
        benchmark::DoNotOptimize(writeJob(static_cast<JobForm>(state.range(1)), job, sink));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/** A wheel of 100 mm with so many edges. */
void BM_Contours(benchmark::State &state)
{
    QPolygonF wheel;
    for (int i = 0; i < state.range(0); ++i) {
        const double angle = 2.0 * M_PI * i / double(state.range(0));
        wheel.append(QPointF(std::cos(angle), std::sin(angle)) * (i % 2 == 0 ? 50.0 : 49.99));
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(contourHatch({wheel}, 0.1).size());
}

} // namespace

BENCHMARK(BM_OrderNearest)->Arg(5012)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OrderExchanged)->Arg(5012)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OrderBest)->Arg(5012)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_GalvoTime)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GantryTime)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Write)
    ->ArgNames({"segments", "form"})
    ->ArgsProduct({{10'000, 1'000'000}, {0, 1, 2, 3, 4, 5}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Contours)->Arg(2'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
