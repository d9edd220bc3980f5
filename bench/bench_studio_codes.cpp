#include <studio/code/CodeReader.h>

#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <algorithm>

namespace {

/** Data Matrix codes in rows of 100, each with a number of its own. */
void fill(ZTGraphicsDocument &document, int count)
{
    const double pitchPx = ZTCoord::getInstance()->mm2pix(8.0);
    for (int number = 0; number < count; ++number) {
        codekit::CodeItem *item =
            codekit::codeItem(document.itemMag()->addShape(ShapeType::QRCode, {0, 0, 10, 10}));
        item->setFixedText(QStringLiteral("SN-%1").arg(number, 6, 10, QLatin1Char('0')));
        item->setPos(pitchPx * (number % 100), pitchPx * (number / 100));
    }
}

/** All codes of a drawing read back; `stallMs` is the longest time that a user waits meanwhile. */
void verifyAll(benchmark::State &state)
{
    ZTGraphicsDocument document;
    fill(document, int(state.range(0)));
    qint64 longestMs = 0;
    for (auto _ : state) {
        studio::CodeReader reader(document);
        int bad = 0;
        QObject::connect(&reader, &studio::CodeReader::read, &reader,
                         [&bad](int, const codekit::CodeReading &reading) {
                             bad += reading.verdict == codekit::CodeVerdict::Good ? 0 : 1;
                         });
        QElapsedTimer sinceEvents;
        sinceEvents.start();
        reader.start(0.0);
        while (reader.isRunning()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            longestMs = std::max(longestMs, sinceEvents.restart());
        }
        if (bad > 0)
            state.SkipWithError("not read");
    }
    state.counters["stallMs"] = double(longestMs);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(verifyAll)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
