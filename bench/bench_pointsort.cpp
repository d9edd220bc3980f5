// Order of the objects of a mark graph: the library beside the plain greedy chain.
//
// The plain chain is quadratic: it runs at up to 16,000 objects, and at 100,000, for minutes, only
// when ZT_BENCH_FULL is set. Layouts: 0 scattered, 1 lattice, 2 all in one place, 3 left elsewhere
// than reached.

#include <support/oracle/PlainChain.h>

#include <ZTDrawEngineLib/model/ZTPointSort.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace {

constexpr int kGoalSize = 100'000;

enum Layout { Scattered, Lattice, OneSpot, TwoPolygons };

ZTMarkObject square(const QPointF &at)
{
    ZTMarkObject object;
    object.lines << QPolygonF(QRectF(at, QSizeF(10, 10)));
    return object;
}

ZTMarkGraph graphOf(Layout layout, int count)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> inField(-30000.0, 30000.0);
    const int columns = static_cast<int>(std::ceil(std::sqrt(count)));
    ZTMarkGraph graph;
    graph.objects.reserve(count);
    for (int i = 0; i < count; ++i) {
        QPointF at;
        if (layout == Lattice)
            at = {100.0 * (i % columns), 100.0 * (i / columns)};
        else if (layout != OneSpot)
            at = {inField(random), inField(random)};
        graph.objects << square(at);
        if (layout == TwoPolygons)
            graph.objects.last().lines
                << QPolygonF(QRectF(inField(random), inField(random), 10, 10));
    }
    return graph;
}

EShapeSortType kindOf(const benchmark::State &state)
{
    return static_cast<EShapeSortType>(state.range(1));
}

Layout layoutOf(const benchmark::State &state) { return static_cast<Layout>(state.range(2)); }

template <class Sort>
void run(benchmark::State &state, Sort sort)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        ZTMarkGraph graph = graphOf(layoutOf(state), count);
        state.ResumeTiming();
        sort(graph);
        benchmark::DoNotOptimize(graph.objects.data());
        state.PauseTiming();
        graph = ZTMarkGraph();
        state.ResumeTiming();
    }
    state.SetComplexityN(count);
}

void BM_Order(benchmark::State &state)
{
    ZTPointSort::getInstance()->setShapeMarkSort(kindOf(state));
    run(state, [](ZTMarkGraph &graph) { ZTPointSort::getInstance()->markGraphSort(graph); });
}

void BM_PlainOrder(benchmark::State &state)
{
    const EShapeSortType kind = kindOf(state);
    run(state, [kind](ZTMarkGraph &graph) { testsupport::plainMarkGraphSort(graph, kind); });
}

} // namespace

#define ORDER(kind, layout)                                                                        \
    BENCHMARK(BM_Order)                                                                            \
        ->ArgNames({"objects", "kind", "layout"})                                                  \
        ->ArgsProduct({{1'000, 10'000, kGoalSize, 400'000}, {kind}, {layout}})                     \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Complexity(benchmark::oNLogN)

ORDER(1, Scattered);
ORDER(2, Scattered);
ORDER(1, Lattice);
ORDER(2, Lattice);
ORDER(1, OneSpot);
ORDER(2, OneSpot);
ORDER(1, TwoPolygons);
ORDER(2, TwoPolygons);

#define PLAIN_ORDER(kind)                                                                          \
    BENCHMARK(BM_PlainOrder)                                                                       \
        ->ArgNames({"objects", "kind", "layout"})                                                  \
        ->ArgsProduct({{1'000, 4'000, 16'000}, {kind}, {Scattered}})                               \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Complexity(benchmark::oNSquared)

PLAIN_ORDER(1);
PLAIN_ORDER(2);

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsSet("ZT_BENCH_FULL")) {
        benchmark::RegisterBenchmark("BM_PlainOrderAtGoal", BM_PlainOrder)
            ->ArgNames({"objects", "kind", "layout"})
            ->ArgsProduct({{kGoalSize}, {1, 2}, {Scattered}})
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
