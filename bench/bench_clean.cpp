// Cleaning a drawing of loose lines, a quarter of them drawn twice.

#include <vectorkit/clean/DrawingCleaning.h>
#include <vectorkit/clean/OutlineOps.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

/** Rings of forty lines each, shuffled, one in four lines twice, some run backwards. */
vectorkit::VectorDrawing looseRings(int lines)
{
    constexpr int kSides = 40;
    std::mt19937 random(1);
    QVector<vectorkit::VectorPath> all;
    const int across = static_cast<int>(std::sqrt(lines / kSides)) + 1;
    for (int i = 0; all.size() < lines; ++i) {
        const QPointF centre(i % across * 12.0, i / across * 12.0);
        const auto corner = [&](int side) {
            const double angle = 2.0 * M_PI * (side % kSides) / kSides;
            return centre + QPointF(std::cos(angle), std::sin(angle)) * 5.0;
        };
        for (int side = 0; side < kSides; ++side) {
            const auto line = vectorkit::VectorPath::polyline({corner(side), corner(side + 1)});
            all.append(random() % 2 == 0 ? line : line.reversed());
            if (side % 4 == 0)
                all.append(line);
        }
    }
    std::shuffle(all.begin(), all.end(), random);
    vectorkit::VectorDrawing drawing;
    drawing.layers.resize(1);
    vectorkit::VectorShape shape;
    for (const vectorkit::VectorPath &path : qAsConst(all)) {
        shape.paths = {path};
        drawing.layers[0].shapes.append(shape);
    }
    return drawing;
}

void clean(benchmark::State &state, const vectorkit::CleanOptions &options)
{
    const vectorkit::VectorDrawing drawing = looseRings(static_cast<int>(state.range(0)));
    vectorkit::CleanReport report;
    for (auto _ : state) {
        vectorkit::VectorDrawing copy = drawing;
        benchmark::DoNotOptimize(vectorkit::cleanDrawing(&copy, options, &report));
    }
    state.counters["paths"] = double(report.pathsAfter);
}

void BM_Doubles(benchmark::State &state)
{
    vectorkit::CleanOptions options;
    options.dropDoubles = true;
    clean(state, options);
}

void BM_Join(benchmark::State &state)
{
    vectorkit::CleanOptions options;
    options.joinMm = 0.01;
    clean(state, options);
}

void BM_Order(benchmark::State &state)
{
    vectorkit::CleanOptions options;
    options.order = true;
    clean(state, options);
}

void BM_All(benchmark::State &state)
{
    vectorkit::CleanOptions options;
    options.dropZeroLength = true;
    options.dropDoubles = true;
    options.joinMm = 0.01;
    options.simplifyMm = 0.001;
    options.fitArcsMm = 0.02;
    options.weld = true;
    options.order = true;
    clean(state, options);
}

/** Rings in one frame, which is all one lot: the worst for welding in lots. */
void BM_WeldInAFrame(benchmark::State &state)
{
    vectorkit::CleanOptions options;
    options.dropDoubles = true;
    options.joinMm = 0.01;
    vectorkit::VectorDrawing rings = looseRings(static_cast<int>(state.range(0)));
    vectorkit::cleanDrawing(&rings, options, nullptr);
    const QRectF box = rings.boundsMm().adjusted(-1.0, -1.0, 1.0, 1.0);
    vectorkit::VectorShape frame;
    frame.paths = {vectorkit::VectorPath::polyline(
        {box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()}, true)};
    rings.layers[0].shapes.append(frame);
    vectorkit::CleanOptions weld;
    weld.weld = true;
    vectorkit::CleanReport report;
    for (auto _ : state) {
        vectorkit::VectorDrawing copy = rings;
        benchmark::DoNotOptimize(vectorkit::cleanDrawing(&copy, weld, &report));
    }
    state.counters["paths"] = double(report.pathsAfter);
}

} // namespace

BENCHMARK(BM_Doubles)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Join)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Order)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_All)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WeldInAFrame)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
