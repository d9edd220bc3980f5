// Plotter file to drawing: the reader beside a QString a line; and drawing to outline.

#include <support/oracle/PlainPltReader.h>

#include <ZTDrawEngineLib/shapes/PltReader.h>
#include <ZTDrawEngineLib/shapes/ZTVecGraph.h>

#include <benchmark/benchmark.h>

#include <QtCore/QBuffer>

#include <random>

namespace {

/** A drawing of closed outlines of twenty lines each, as a plotter driver writes them. */
QByteArray drawing(int lineCount)
{
    std::mt19937 random(1);
    QByteArray bytes = "IN;\nSP1;\n";
    for (int i = 2; i < lineCount; ++i) {
        bytes += i % 20 == 2 ? "PU" : "PD";
        bytes += QByteArray::number(static_cast<int>(random() % 40000));
        bytes += ' ';
        bytes += QByteArray::number(static_cast<int>(random() % 40000) - 20000);
        bytes += ";\n";
    }
    return bytes;
}

void BM_PltReader(benchmark::State &state)
{
    QByteArray bytes = drawing(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        PltReader reader;
        benchmark::DoNotOptimize(reader.load(buffer));
    }
    state.SetComplexityN(state.range(0));
}

void BM_PlainPltReader(benchmark::State &state)
{
    const QByteArray bytes = drawing(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        testsupport::PlainPltReader reader;
        benchmark::DoNotOptimize(reader.load(bytes));
    }
    state.SetComplexityN(state.range(0));
}

/** The outline made anew from the drawing, as each change of size or place does. */
void BM_PaintShape(benchmark::State &state)
{
    QByteArray bytes = drawing(static_cast<int>(state.range(0)));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    ZTVecGraph shape;
    if (!shape.readImage(buffer, QStringLiteral("bench.plt")))
        state.SkipWithError("the drawing was not read");
    for (auto _ : state) {
        shape.setUpdate(1);
        shape.paint();
        benchmark::DoNotOptimize(shape.getLines().elementCount());
    }
    state.SetComplexityN(state.range(0));
}

} // namespace

BENCHMARK(BM_PaintShape)
    ->RangeMultiplier(10)
    ->Range(1'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(BM_PltReader)
    ->RangeMultiplier(10)
    ->Range(1'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(BM_PlainPltReader)
    ->RangeMultiplier(10)
    ->Range(1'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK_MAIN();
