#include <support/RandomDrawing.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

using hostkit::DrawingFile;
using hostkit::Failure;

namespace {

constexpr double kPitchPx = 60.0;

enum class Content { Rectangles, Mixed, Hatched };

void hatch(ZTAbstractGraphicsItem &item)
{
    ZTFillParam fill;
    fill.fillType = FillType::ULine;
    fill.spac = 0.1;
    fill.angle = 30.0;
    item.setFillParam(fill);
}

void fill(ZTGraphicsDocument &document, Content content, int count)
{
    if (content == Content::Mixed) {
        testsupport::RandomDrawing random(1);
        // Without texts: what they cost is their fonts.
        random.kinds.removeAll(ShapeType::Text);
        random.withMatrices = false;
        random.add(document, count);
        document.itemMag()->getShapeLines(); // nothing waits for a rebuild
        return;
    }
    const int columns = static_cast<int>(std::ceil(std::sqrt(count)));
    for (int i = 0; i < count; ++i) {
        const QPoint cell(i % columns, i / columns);
        ZTAbstractGraphicsItem *item =
            document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
        item->setPos(QPointF(cell) * kPitchPx);
        if (content == Content::Hatched)
            hatch(*item);
    }
}

/** A document in a window with its tree, as users see it. */
struct Window
{
    Window()
    {
        document.resize(800, 600);
        document.setObjectTree(&tree);
        document.show();
        tree.show();
    }

    ZTGraphicsDocument document;
    ZTObjectTreeWidget tree{nullptr};
};

DrawingFile drawingOf(Content content, int count, bool withPreview = false)
{
    ZTGraphicsDocument document;
    fill(document, content, count);
    hostkit::DrawingCapture capture;
    capture.withPreview = withPreview;
    DrawingFile drawing;
    Failure error;
    if (!captureDrawing(document, capture, &drawing, &error))
        qFatal("%s", qPrintable(error.reason));
    return drawing;
}

int countOf(const benchmark::State &state) { return static_cast<int>(state.range(0)); }

Content contentOf(const benchmark::State &state)
{
    constexpr Content kContents[] = {Content::Rectangles, Content::Mixed, Content::Hatched};
    return kContents[state.range(1)];
}

void capture(benchmark::State &state, bool withPreview)
{
    ZTGraphicsDocument document;
    fill(document, contentOf(state), countOf(state));
    hostkit::DrawingCapture how;
    how.withPreview = withPreview;
    Failure error;
    for (auto _ : state) {
        DrawingFile drawing;
        if (!captureDrawing(document, how, &drawing, &error))
            state.SkipWithError("not captured");
    }
    state.SetComplexityN(state.range(0));
}

/** What an autosave does on the window's thread. */
void BM_capture(benchmark::State &state) { capture(state, false); }

void BM_captureWithPreview(benchmark::State &state) { capture(state, true); }

/** Sections and checksums, without a disk. */
void BM_toBytes(benchmark::State &state)
{
    const DrawingFile drawing = drawingOf(contentOf(state), countOf(state));
    qint64 bytes = 0;
    for (auto _ : state)
        bytes += drawingToBytes(drawing).size();
    state.SetBytesProcessed(bytes);
    state.SetComplexityN(state.range(0));
}

void BM_write(benchmark::State &state)
{
    const DrawingFile drawing = drawingOf(contentOf(state), countOf(state));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.ztd"));
    Failure error;
    for (auto _ : state) {
        if (!writeDrawing(drawing, path, &error))
            state.SkipWithError("not written");
    }
    state.SetComplexityN(state.range(0));
}

/** All checks, without a disk and without a document. */
void BM_read(benchmark::State &state)
{
    const QByteArray bytes = drawingToBytes(drawingOf(contentOf(state), countOf(state)));
    Failure error;
    for (auto _ : state) {
        DrawingFile drawing;
        if (!readDrawing(bytes, &drawing, &error))
            state.SkipWithError("not read");
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
    state.SetComplexityN(state.range(0));
}

/** Items built, in scene and tree, and painted. */
void BM_apply(benchmark::State &state)
{
    const DrawingFile drawing = drawingOf(contentOf(state), countOf(state));
    Failure error;
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<Window>();
        QApplication::processEvents();
        state.ResumeTiming();
        if (!applyDrawing(drawing, window->document, {}, nullptr, &error))
            state.SkipWithError("not loaded");
        QApplication::processEvents();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/** From a file on the disk to a painted window. */
void BM_open(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.ztd"));
    Failure error;
    if (!writeDrawing(drawingOf(contentOf(state), countOf(state), true), path, &error))
        state.SkipWithError("not written");
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<Window>();
        QApplication::processEvents();
        state.ResumeTiming();
        DrawingFile drawing;
        if (!readDrawing(path, &drawing, &error) ||
            !applyDrawing(drawing, window->document, {}, nullptr, &error))
            state.SkipWithError("not opened");
        QApplication::processEvents();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark *bench)
{
    for (const int content : {0, 1}) {
        for (const int count : {1000, 10000, 100000})
            bench->Args({count, content});
    }
    bench->Unit(benchmark::kMillisecond);
}

void ignoreMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

BENCHMARK(BM_capture)->Apply(sizes);
BENCHMARK(BM_captureWithPreview)->Apply(sizes);
BENCHMARK(BM_toBytes)->Apply(sizes);
BENCHMARK(BM_write)->Apply(sizes);
BENCHMARK(BM_read)->Apply(sizes);
BENCHMARK(BM_apply)->Apply(sizes);
BENCHMARK(BM_apply)->Args({10000, 2})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_open)->Apply(sizes);

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    qInstallMessageHandler(ignoreMessages); // imported drawings begin with no file, and say so
    hostkit::registerFactories();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
