// Plotter file to drawing: the reader beside reading the bytes and splitting the numbers alone.

#include <vectorkit/VectorReader.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <random>

namespace {

/** Outlines of twenty points, as drivers write them: each command alone, or points in a row. */
QByteArray drawing(int points, bool inRows)
{
    std::mt19937 random(1);
    QByteArray bytes = "IN;SP1;\n";
    for (int i = 0; i < points; ++i) {
        const bool isFirst = i % 20 == 0;
        const bool isSecond = i % 20 == 1;
        if (isFirst || isSecond || !inRows)
            bytes += isFirst ? "PU" : "PD";
        bytes += QByteArray::number(static_cast<int>(random() % 40000));
        bytes += ',';
        bytes += QByteArray::number(static_cast<int>(random() % 40000) - 20000);
        bytes += inRows && !isFirst && i % 20 != 19 ? "," : ";\n";
    }
    return bytes;
}

void BM_HpglReader(benchmark::State &state)
{
    const QByteArray bytes = drawing(static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        vectorkit::VectorDrawing read;
        vectorkit::ReadFailure failure;
        benchmark::DoNotOptimize(vectorkit::readDrawing(bytes, {}, &read, &failure));
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

/** The least that any reader has to do. */
void BM_SplitNumbers(benchmark::State &state)
{
    const QByteArray bytes = drawing(static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        std::vector<int> numbers;
        const char *at = bytes.begin();
        while (at != bytes.end()) {
            int number = 0;
            const auto read = std::from_chars(at, bytes.end(), number);
            if (read.ec == std::errc())
                numbers.push_back(number);
            at = read.ec == std::errc() ? read.ptr : at + 1;
        }
        benchmark::DoNotOptimize(numbers.data());
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

} // namespace

BENCHMARK(BM_HpglReader)
    ->ArgsProduct({{10'000, 1'000'000}, {0, 1}})
    ->ArgNames({"points", "inRows"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SplitNumbers)
    ->ArgsProduct({{10'000, 1'000'000}, {0, 1}})
    ->ArgNames({"points", "inRows"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
