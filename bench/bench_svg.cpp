// SVG drawings of many paths: the reader, beside the time another one takes for its picture.

#include <vectorkit/VectorReader.h>

#include <benchmark/benchmark.h>

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>

#include <random>

namespace {

/** Curves and lines in groups, as drawing programs write them. */
QByteArray drawing(int pathCount)
{
    std::mt19937 random(1);
    const auto number = [&] { return QByteArray::number(int(random() % 100000) / 100.0); };
    QByteArray bytes = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1000mm\" "
                       "height=\"1000mm\" viewBox=\"0 0 1000 1000\"><g id=\"layer\">\n";
    for (int index = 0; index < pathCount; ++index) {
        bytes += "<path id=\"p" + QByteArray::number(index) +
                 "\" style=\"fill:none;stroke:#ff0000;stroke-width:0.1\" d=\"m " + number() + "," +
                 number();
        bytes += " c 1,2 3,4.5 5.25,6 l 1.5,-2.5 2.25,3 -1,1 z\"/>\n";
    }
    return bytes + "</g></svg>\n";
}

void BM_ReadSvg(benchmark::State &state)
{
    const QByteArray bytes = drawing(int(state.range(0)));
    for (auto _ : state) {
        vectorkit::VectorDrawing read;
        vectorkit::ReadFailure failure;
        benchmark::DoNotOptimize(
            vectorkit::readSvg(bytes, vectorkit::ReadOptions(), &read, &failure));
    }
    state.SetBytesProcessed(qint64(state.iterations()) * bytes.size());
    state.SetComplexityN(state.range(0));
}

/** The other reader has to draw what it reads; a picture of 16 pixels is the least it can do. */
void BM_OtherReader(benchmark::State &state)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("rsvg-convert"));
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.svg"));
    QFile file(path);
    if (program.isEmpty() || !file.open(QIODevice::WriteOnly)) {
        state.SkipWithError("rsvg-convert is missing: tools/setup.sh test");
        return;
    }
    file.write(drawing(int(state.range(0))));
    file.close();
    for (auto _ : state) {
        QProcess process;
        process.start(program, {QStringLiteral("-w"), QStringLiteral("16"), QStringLiteral("-o"),
                                folder.filePath(QStringLiteral("picture.png")), path});
        process.waitForFinished(-1);
    }
}

} // namespace

BENCHMARK(BM_ReadSvg)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(BM_OtherReader)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
