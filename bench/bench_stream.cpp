// Saving and loading large drawings, beside the plain writing and reading of the same bytes.

#include <hostkit/setup/Factories.h>
#include <support/oracle/PlainStream.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QElapsedTimer>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

namespace {

using testsupport::PlainDrawing;
using MakeDrawing = PlainDrawing (*)(int count);

int countOf(const benchmark::State &state) { return static_cast<int>(state.range(0)); }

QByteArray bytesOf(const PlainDrawing &drawing)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    testsupport::writePlainly(stream, drawing);
    return bytes;
}

/** A document as a user has it open: shown, with the tree of its shapes. */
class OpenDocument
{
public:
    OpenDocument()
    {
        document.resize(800, 600);
        document.show();
        document.setObjectTree(tree.get());
        tree->show();
        QApplication::processEvents();
    }

    ~OpenDocument() { tree.reset(); }
    OpenDocument(const OpenDocument &) = delete;
    OpenDocument &operator=(const OpenDocument &) = delete;

    void load(const QByteArray &bytes)
    {
        QDataStream stream(bytes);
        manager().load(stream);
    }

    ZTShapeManager &manager() { return *document.itemMag(); }

private:
    ZTGraphicsDocument document{nullptr};
    std::unique_ptr<ZTObjectTreeWidget> tree = std::make_unique<ZTObjectTreeWidget>(nullptr);
};

template <class Save>
QByteArray timeSaves(benchmark::State &state, int sizeHint, const Save &save)
{
    QByteArray bytes;
    bytes.reserve(sizeHint);
    for (auto _ : state) {
        bytes.resize(0);
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        save(stream);
        benchmark::ClobberMemory();
    }
    state.SetComplexityN(state.range(0));
    return bytes;
}

void BM_writePlainly(benchmark::State &state, MakeDrawing make)
{
    const PlainDrawing drawing = make(countOf(state));
    timeSaves(state, bytesOf(drawing).size(),
              [&](QDataStream &stream) { testsupport::writePlainly(stream, drawing); });
}

void BM_save(benchmark::State &state, MakeDrawing make)
{
    ZTShapeManager manager(nullptr);
    QByteArray plain = bytesOf(make(countOf(state)));
    QDataStream in(plain);
    manager.load(in);
    const QByteArray bytes =
        timeSaves(state, plain.size(), [&](QDataStream &stream) { manager.save(stream); });
    QDataStream saved(bytes);
    if (bytesOf(testsupport::readPlainly(saved)) != bytes)
        state.SkipWithError("the plain way writes other bytes");
}

void BM_readPlainly(benchmark::State &state, MakeDrawing make)
{
    const QByteArray bytes = bytesOf(make(countOf(state)));
    for (auto _ : state) {
        QDataStream stream(bytes);
        benchmark::DoNotOptimize(testsupport::readPlainly(stream));
    }
    state.SetComplexityN(state.range(0));
}

template <class Finish>
void timeLoads(benchmark::State &state, MakeDrawing make, const Finish &finish)
{
    const QByteArray bytes = bytesOf(make(countOf(state)));
    for (auto _ : state) {
        state.PauseTiming();
        auto open = std::make_unique<OpenDocument>();
        state.ResumeTiming();
        open->load(bytes);
        finish(*open);
        state.PauseTiming();
        if (open->manager().itemModel()->rowCount() != countOf(state))
            state.SkipWithError("not all items are there");
        open.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/** The call alone: the items are built, painted once, in the scene and in the tree. */
void BM_load(benchmark::State &state, MakeDrawing make)
{
    timeLoads(state, make, [](OpenDocument &) {});
}

/** With every hatch looked at, those of shapes out of sight too: as if all were shown. */
void BM_loadAndHatch(benchmark::State &state, MakeDrawing make)
{
    timeLoads(state, make, [](OpenDocument &open) {
        for (const QGraphicsItem *candidate : open.manager().scene()->items()) {
            if (const auto *item = dynamic_cast<const ZTAbstractGraphicsItem *>(candidate))
                benchmark::DoNotOptimize(item->getShapeBase()->getFillLines().constData());
        }
    });
}

/** Until the window is up to date again. */
void BM_loadAndShow(benchmark::State &state, MakeDrawing make)
{
    timeLoads(state, make, [](OpenDocument &) { QApplication::processEvents(); });
}

/** Taking back what was loaded, as a host does when the user cancels or opens another drawing. */
void BM_clear(benchmark::State &state, MakeDrawing make)
{
    const QByteArray bytes = bytesOf(make(countOf(state)));
    for (auto _ : state) {
        state.PauseTiming();
        auto open = std::make_unique<OpenDocument>();
        open->load(bytes);
        state.ResumeTiming();
        open->manager().clear();
        QApplication::processEvents();
        state.PauseTiming();
        open.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/** A device that notes the longest time between two reads: how long a progress bar stands still. */
class WatchedBuffer : public QBuffer
{
public:
    explicit WatchedBuffer(QByteArray *bytes) : QBuffer(bytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        sinceRead.start();
    }

    void noteTime() { longestNs = qMax(longestNs, sinceRead.nsecsElapsed()); }

    qint64 longestNs = 0;

protected:
    qint64 readData(char *data, qint64 size) override
    {
        noteTime();
        sinceRead.start();
        return QBuffer::readData(data, size);
    }

private:
    QElapsedTimer sinceRead;
};

/** Tells the longest silence between two reads of the device, its end included. Wall clock. */
void BM_longestSilence(benchmark::State &state, MakeDrawing make)
{
    QByteArray bytes = bytesOf(make(countOf(state)));
    qint64 longestNs = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto open = std::make_unique<OpenDocument>();
        state.ResumeTiming();
        WatchedBuffer device(&bytes);
        QDataStream stream(&device);
        open->manager().load(stream);
        device.noteTime();
        longestNs = qMax(longestNs, device.longestNs);
        state.PauseTiming();
        open.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
    state.counters["silence_ms"] = static_cast<double>(longestNs) / 1e6;
}

/** A buffer that is cancelled after a hundredth of its bytes: it gives no kind of item any more. */
class CancelledBuffer : public QBuffer
{
public:
    explicit CancelledBuffer(QByteArray *bytes) : QBuffer(bytes), good(bytes->size() / 100)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        if (pos() < good)
            return QBuffer::readData(data, size);
        std::fill_n(data, size, '\xFF');
        return size;
    }

private:
    qint64 good;
};

void BM_cancelledLoad(benchmark::State &state, MakeDrawing make)
{
    QByteArray bytes = bytesOf(make(countOf(state)));
    for (auto _ : state) {
        state.PauseTiming();
        auto open = std::make_unique<OpenDocument>();
        state.ResumeTiming();
        CancelledBuffer device(&bytes);
        QDataStream stream(&device);
        open->manager().load(stream);
        state.PauseTiming();
        open.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark *bench)
{
    bench->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();
}

} // namespace

BENCHMARK_CAPTURE(BM_writePlainly, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_save, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_writePlainly, mixed, testsupport::mixedDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_save, mixed, testsupport::mixedDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_readPlainly, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_load, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_loadAndShow, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_readPlainly, mixed, testsupport::mixedDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_load, mixed, testsupport::mixedDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_loadAndShow, mixed, testsupport::mixedDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_loadAndHatch, mixed, testsupport::mixedDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_clear, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_cancelledLoad, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_longestSilence, rectangles, testsupport::rectanglesDrawing)->Apply(sizes);
BENCHMARK_CAPTURE(BM_longestSilence, mixed, testsupport::mixedDrawing)->Apply(sizes);

int main(int argc, char **argv)
{
    // Every drawing without its file, and every text without fonts, says so.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    hostkit::registerFactories();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
