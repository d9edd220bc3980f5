#include <codekit/shape/CodeCheck.h>
#include <hostkit/marks/MarkGraphBuilder.h>

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>

using namespace codekit;

namespace {

/** Data Matrix codes in rows of 100, each with a number of its own, hatched at 0.05 mm. */
CodeItem *fill(ZTGraphicsDocument &document, int count)
{
    CodeItem *first = nullptr;
    const double pitchPx = ZTCoord::getInstance()->mm2pix(8.0);
    for (int number = 0; number < count; ++number) {
        CodeItem *item = codeItem(document.itemMag()->addShape(ShapeType::QRCode, {0, 0, 10, 10}));
        item->setFixedText(QStringLiteral("SN-%1").arg(number, 6, 10, QLatin1Char('0')));
        item->setPos(pitchPx * (number % 100), pitchPx * (number / 100));
        if (first == nullptr)
            first = item;
    }
    return first;
}

void makeAndShowCodes(benchmark::State &state)
{
    for (auto _ : state) {
        ZTGraphicsDocument document;
        benchmark::DoNotOptimize(fill(document, int(state.range(0))));
    }
}
BENCHMARK(makeAndShowCodes)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void editOneAmongMany(benchmark::State &state)
{
    ZTGraphicsDocument document;
    CodeItem *item = fill(document, int(state.range(0)));
    int number = 0;
    for (auto _ : state)
        item->setFixedText(QString::number(++number));
}
BENCHMARK(editOneAmongMany)->Arg(10000)->Unit(benchmark::kMillisecond);

void verifyCodes(benchmark::State &state)
{
    ZTGraphicsDocument document;
    fill(document, int(state.range(0)));
    for (auto _ : state) {
        for (ZTAbstractGraphicsItem *item : hostkit::markedItems(document)) {
            hostkit::MarkGraphBuilder builder(document, {item});
            builder.work(1000000);
            CodeSurroundings around;
            around.marks = builder.takeUnordered().objects.first();
            around.units = hostkit::MarkUnits::of(*document.itemMag());
            if (readCode(*codeItem(item), around).verdict != CodeVerdict::Good)
                state.SkipWithError("not read");
        }
    }
}
BENCHMARK(verifyCodes)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    registerCodeFactories();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
