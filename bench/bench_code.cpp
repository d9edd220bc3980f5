#include <codekit/CodeMarks.h>
#include <codekit/CodeReadback.h>

#include <benchmark/benchmark.h>

using namespace codekit;

namespace {

CodeSpec serial(int number)
{
    CodeSpec spec;
    spec.kind = CodeKind::DataMatrix;
    spec.content = QStringLiteral("SN-%1").arg(number, 6, 10, QLatin1Char('0'));
    return spec;
}

/** Codes with serial numbers, from content to outlines: each of 14 x 14 modules. */
void makeDataMatrix(benchmark::State &state)
{
    for (auto _ : state) {
        for (int number = 0; number < state.range(0); ++number) {
            CodeSymbol symbol;
            CodeMarks marks;
            QString reason;
            if (!encodeCode(serial(number), &symbol, &reason) ||
                !markCode(symbol, CodeForm(), &marks, &reason)) {
                state.SkipWithError("not made");
                return;
            }
            benchmark::DoNotOptimize(marks);
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(makeDataMatrix)
    ->RangeMultiplier(10)
    ->Range(100, 10000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

/** Outlines of one symbol of 177 x 177 modules. */
void markLargestQr(benchmark::State &state)
{
    CodeSpec spec;
    spec.kind = CodeKind::Qr;
    spec.version = 40;
    spec.content = QStringLiteral("SN-0001");
    CodeSymbol symbol;
    QString reason;
    if (!encodeCode(spec, &symbol, &reason))
        state.SkipWithError("not made");
    for (auto _ : state) {
        CodeMarks marks;
        markCode(symbol, CodeForm(), &marks, &reason);
        benchmark::DoNotOptimize(marks);
    }
}
BENCHMARK(markLargestQr)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
