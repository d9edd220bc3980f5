// DXF drawings of many paths: the reader, beside the time another one takes for the same curves.

#include <vectorkit/VectorReader.h>

#include <benchmark/benchmark.h>

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <random>

namespace {

QByteArray tag(int code, const QByteArray &value)
{
    return QByteArray::number(code).rightJustified(3) + '\n' + value + '\n';
}

/** Polylines with an arc, circles and lines on three layers, as drawing programs write them. */
QByteArray drawing(int pathCount)
{
    std::mt19937 random(1);
    const auto number = [&] { return QByteArray::number(int(random() % 1000000) / 1000.0); };
    const auto point = [&](int code) { return tag(code, number()) + tag(code + 10, number()); };
    QByteArray bytes = tag(0, "SECTION") + tag(2, "HEADER") + tag(9, "$ACADVER") +
                       tag(1, "AC1015") + tag(9, "$INSUNITS") + tag(70, "4") + tag(0, "ENDSEC") +
                       tag(0, "SECTION") + tag(2, "ENTITIES");
    for (int index = 0; index < pathCount; ++index) {
        const int kind = index % 3;
        const QByteArray head = tag(5, QByteArray::number(index + 100, 16)) +
                                tag(100, "AcDbEntity") + tag(8, "LAYER" + QByteArray::number(kind));
        if (kind == 0)
            bytes += tag(0, "LINE") + head + tag(100, "AcDbLine") + point(10) + point(11);
        else if (kind == 1)
            bytes += tag(0, "CIRCLE") + head + tag(100, "AcDbCircle") + point(10) + tag(40, "2.5");
        else
            bytes += tag(0, "LWPOLYLINE") + head + tag(100, "AcDbPolyline") + tag(90, "4") +
                     tag(70, "1") + point(10) + point(10) + tag(42, "0.5") + point(10) + point(10);
    }
    return bytes + tag(0, "ENDSEC") + tag(0, "EOF");
}

void BM_ReadDxf(benchmark::State &state)
{
    const QByteArray bytes = drawing(int(state.range(0)));
    for (auto _ : state) {
        vectorkit::VectorDrawing read;
        vectorkit::ReadFailure failure;
        benchmark::DoNotOptimize(
            vectorkit::readDxf(bytes, vectorkit::ReadOptions(), &read, &failure));
    }
    state.SetBytesProcessed(qint64(state.iterations()) * bytes.size());
    state.SetComplexityN(state.range(0));
}

void BM_OtherReader(benchmark::State &state)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("drawing.dxf")));
    if (!file.open(QIODevice::WriteOnly)) {
        state.SkipWithError("no temporary file");
        return;
    }
    file.write(drawing(int(state.range(0))));
    file.close();
    const QString code = QStringLiteral("import sys, ezdxf\n"
                                        "for entity in ezdxf.readfile(sys.argv[1]).modelspace():\n"
                                        "    entity.dxftype()\n");
    for (auto _ : state) {
        QProcess process;
        process.start(QStringLiteral("/usr/bin/python3"),
                      {QStringLiteral("-c"), code, file.fileName()});
        if (!process.waitForFinished(-1) || process.exitCode() != 0) {
            state.SkipWithError("python3-ezdxf is missing: tools/setup.sh test");
            return;
        }
    }
}

} // namespace

BENCHMARK(BM_ReadDxf)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(BM_OtherReader)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
