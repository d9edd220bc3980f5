#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoStack>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace {

constexpr double kPitchPx = 60.0;

/** A scene with a square block of rectangles, in a view that an operator could work in. */
class Drawing
{
public:
    explicit Drawing(int count)
    {
        scene->setUndoStack(&stack);
        const int columns = static_cast<int>(std::ceil(std::sqrt(count)));
        for (int i = 0; i < count; ++i) {
            auto *item = new ZTGraphicsRectItem;
            item->getShapeBase()->setId(i);
            item->setPos((i % columns) * kPitchPx, (i / columns) * kPitchPx);
            scene->addItem(item);
        }
        const double sidePx = columns * kPitchPx;
        blockPx = QRectF(0, 0, sidePx, sidePx);
        view.setScene(scene.get());
        view.resize(800, 600);
        view.fitInView(blockPx.adjusted(-sidePx, -sidePx, sidePx, sidePx), Qt::KeepAspectRatio);
        view.show();
        QApplication::processEvents();
    }

    void selectAll()
    {
        QPainterPath everywhere;
        everywhere.addRect(scene->sceneRect());
        scene->setSelectionArea(everywhere, Qt::ReplaceSelection, Qt::IntersectsItemBoundingRect);
    }

    void drag(const QPointF &fromPx, const QPointF &toPx)
    {
        send(QEvent::MouseButtonPress, fromPx, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseMove, toPx, Qt::NoButton, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, toPx, Qt::LeftButton, Qt::NoButton);
    }

    void send(QEvent::Type type, const QPointF &posPx, Qt::MouseButton button,
              Qt::MouseButtons buttons)
    {
        const QPoint pos = view.mapFromScene(posPx);
        QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos), button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }

    QPointF center() const { return blockPx.center(); }

    QUndoStack stack;
    std::unique_ptr<ZTGraphicsScene> scene = std::make_unique<ZTGraphicsScene>();
    ZTGraphicsView view{nullptr};
    QRectF blockPx;
};

int countOf(const benchmark::State &state) { return static_cast<int>(state.range(0)); }

void BM_create(benchmark::State &state)
{
    for (auto _ : state) {
        auto drawing = std::make_unique<Drawing>(countOf(state));
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_selectAll(benchmark::State &state)
{
    Drawing drawing(countOf(state));
    for (auto _ : state) {
        drawing.selectAll();
        state.PauseTiming();
        drawing.scene->clearSelection();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_clearSelection(benchmark::State &state)
{
    Drawing drawing(countOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        drawing.selectAll();
        state.ResumeTiming();
        drawing.scene->clearSelection();
    }
    state.SetComplexityN(state.range(0));
}

void BM_dragAll(benchmark::State &state)
{
    Drawing drawing(countOf(state));
    drawing.selectAll();
    for (auto _ : state) {
        drawing.drag(drawing.center(), drawing.center() + QPointF(kPitchPx * 5, kPitchPx * 5));
        state.PauseTiming();
        drawing.stack.undo();
        drawing.stack.clear();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/** One mouse move of a drag under way, with the repaint that follows it. */
void BM_dragFrame(benchmark::State &state)
{
    Drawing drawing(countOf(state));
    drawing.selectAll();
    drawing.send(QEvent::MouseButtonPress, drawing.center(), Qt::LeftButton, Qt::LeftButton);
    for (int i = 1; i <= 3; ++i) {
        drawing.send(QEvent::MouseMove, drawing.center() + QPointF(i, 0), Qt::NoButton,
                     Qt::LeftButton);
        QApplication::processEvents();
    }
    double shiftPx = kPitchPx;
    for (auto _ : state) {
        drawing.send(QEvent::MouseMove, drawing.center() + QPointF(shiftPx, 0), Qt::NoButton,
                     Qt::LeftButton);
        QApplication::processEvents();
        shiftPx = -shiftPx;
    }
    drawing.send(QEvent::MouseButtonRelease, drawing.center(), Qt::LeftButton, Qt::NoButton);
    state.SetComplexityN(state.range(0));
}

void BM_undoDrag(benchmark::State &state)
{
    Drawing drawing(countOf(state));
    drawing.selectAll();
    drawing.drag(drawing.center(), drawing.center() + QPointF(kPitchPx * 5, kPitchPx * 5));
    if (drawing.stack.count() != 1)
        state.SkipWithError("the drag was not recorded");
    for (auto _ : state) {
        drawing.stack.undo();
        state.PauseTiming();
        drawing.stack.redo();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_repaint(benchmark::State &state)
{
    Drawing drawing(countOf(state));
    QImage image(drawing.view.viewport()->size(), QImage::Format_RGB32);
    for (auto _ : state)
        drawing.view.viewport()->render(&image);
    state.SetComplexityN(state.range(0));
}

/** Deletes each item whose place in the stack is a multiple of `step`; all are selected. */
void deleteEach(benchmark::State &state, int step)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>(countOf(state));
        drawing->selectAll();
        QList<ZTAbstractGraphicsItem *> doomed;
        const QList<QGraphicsItem *> items = drawing->scene->items(Qt::AscendingOrder);
        for (int i = 0; i < items.size(); i += step) {
            if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(items.at(i)))
                doomed.append(item);
        }
        state.ResumeTiming();
        drawing->scene->deleteItems(doomed);
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_deleteAll(benchmark::State &state) { deleteEach(state, 1); }

void BM_deleteEverySecond(benchmark::State &state) { deleteEach(state, 2); }

void BM_destroyScene(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>(countOf(state));
        drawing->selectAll();
        drawing->view.setScene(nullptr);
        state.ResumeTiming();
        drawing->scene.reset();
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/** The same without an event loop having run: Qt then still has every item in its queues. */
void BM_destroyUnshownScene(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto scene = std::make_unique<ZTGraphicsScene>();
        for (int i = 0; i < countOf(state); ++i)
            scene->addItem(new ZTGraphicsRectItem);
        state.ResumeTiming();
        scene.reset();
    }
    state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark *bench)
{
    bench->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();
}

} // namespace

BENCHMARK(BM_create)->Apply(sizes);
BENCHMARK(BM_selectAll)->Apply(sizes);
BENCHMARK(BM_clearSelection)->Apply(sizes);
BENCHMARK(BM_dragAll)->Apply(sizes);
BENCHMARK(BM_dragFrame)->Apply(sizes);
BENCHMARK(BM_undoDrag)->Apply(sizes);
BENCHMARK(BM_repaint)->Apply(sizes);
BENCHMARK(BM_deleteAll)->Apply(sizes);
BENCHMARK(BM_deleteEverySecond)->Apply(sizes);
BENCHMARK(BM_destroyScene)->Apply(sizes);
BENCHMARK(BM_destroyUnshownScene)->Apply(sizes);

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
