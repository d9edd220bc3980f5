#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace {

constexpr double kPitchPx = 60.0;

enum class Tree { None, Shown };

/** A document with a square block of rectangles, and the tree of its shapes if there is to be. */
class Drawing
{
public:
    explicit Drawing(Tree kind)
    {
        document.resize(800, 600);
        document.show();
        if (kind == Tree::None)
            return;
        tree = std::make_unique<ZTObjectTreeWidget>(nullptr);
        document.setObjectTree(tree.get());
        tree->show();
    }

    Drawing(Tree kind, int count) : Drawing(kind)
    {
        add(count);
        QApplication::processEvents();
    }

    ~Drawing() { tree.reset(); }
    Drawing(const Drawing &) = delete;
    Drawing &operator=(const Drawing &) = delete;

    void add(int count)
    {
        const int columns = static_cast<int>(std::ceil(std::sqrt(count)));
        for (int i = 0; i < count; ++i) {
            ZTAbstractGraphicsItem *item =
                manager().addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
            item->setPos((i % columns) * kPitchPx, (i / columns) * kPitchPx);
        }
    }

    void selectAllInScene()
    {
        QPainterPath everywhere;
        everywhere.addRect(manager().scene()->sceneRect());
        manager().scene()->setSelectionArea(everywhere, Qt::ReplaceSelection,
                                            Qt::IntersectsItemBoundingRect);
    }

    void selectEverySecondInScene()
    {
        ZTGraphicsScene &scene = *manager().scene();
        const QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
        {
            const QSignalBlocker oneSignalForAll(&scene);
            for (int i = 0; i < items.size(); i += 2)
                items[i]->setSelected(true);
        }
        Q_EMIT scene.selectionChanged();
    }

    ZTShapeManager &manager() { return *document.itemMag(); }

    ZTGraphicsDocument document{nullptr};
    std::unique_ptr<ZTObjectTreeWidget> tree;
};

int countOf(const benchmark::State &state) { return static_cast<int>(state.range(0)); }

void create(benchmark::State &state, Tree kind)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>(kind);
        state.ResumeTiming();
        drawing->add(countOf(state));
        QApplication::processEvents();
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_create(benchmark::State &state) { create(state, Tree::None); }

void BM_createWithTree(benchmark::State &state) { create(state, Tree::Shown); }

/** By the scene, as a rubber band does, with the rows of the tree following. */
void BM_selectAllInScene(benchmark::State &state)
{
    Drawing drawing(Tree::Shown, countOf(state));
    for (auto _ : state) {
        drawing.selectAllInScene();
        QApplication::processEvents();
        state.PauseTiming();
        drawing.manager().scene()->clearSelection();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_selectAllInTree(benchmark::State &state)
{
    Drawing drawing(Tree::Shown, countOf(state));
    for (auto _ : state) {
        drawing.tree->selectAll();
        QApplication::processEvents();
        state.PauseTiming();
        drawing.tree->clearSelection();
        state.ResumeTiming();
    }
    if (!drawing.manager().scene()->selectedItems().isEmpty())
        state.SkipWithError("the scene did not follow the tree");
    state.SetComplexityN(state.range(0));
}

/** Every second one: as many runs of selected rows as there can be. */
void BM_selectEverySecondInScene(benchmark::State &state)
{
    Drawing drawing(Tree::Shown, countOf(state));
    for (auto _ : state) {
        drawing.selectEverySecondInScene();
        QApplication::processEvents();
        state.PauseTiming();
        drawing.manager().scene()->clearSelection();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_clearSelectionInTree(benchmark::State &state)
{
    Drawing drawing(Tree::Shown, countOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        drawing.tree->selectAll();
        state.ResumeTiming();
        drawing.tree->clearSelection();
        QApplication::processEvents();
    }
    state.SetComplexityN(state.range(0));
}

void BM_getShapeLines(benchmark::State &state)
{
    Drawing drawing(Tree::None, countOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing.manager().getShapeLines());
    state.SetComplexityN(state.range(0));
}

void BM_getSelectedShapeLines(benchmark::State &state)
{
    Drawing drawing(Tree::None, countOf(state));
    drawing.selectAllInScene();
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing.manager().getSelectedShapeLines());
    state.SetComplexityN(state.range(0));
}

template <class Delete>
void deleteShapes(benchmark::State &state, const Delete &deleteThem)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>(Tree::Shown, countOf(state));
        drawing->selectAllInScene();
        QApplication::processEvents();
        state.ResumeTiming();
        deleteThem(drawing->manager());
        QApplication::processEvents();
        state.PauseTiming();
        if (!drawing->manager().getShapeList().isEmpty())
            state.SkipWithError("not all are gone");
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/** As many runs of rows to take out as there can be. */
void BM_removeEverySecond(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>(Tree::Shown, countOf(state));
        drawing->selectEverySecondInScene();
        QApplication::processEvents();
        state.ResumeTiming();
        drawing->manager().removeSelect();
        QApplication::processEvents();
        state.PauseTiming();
        if (drawing->manager().getShapeList().size() != countOf(state) / 2)
            state.SkipWithError("not every second one is gone");
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_removeSelect(benchmark::State &state)
{
    deleteShapes(state, [](ZTShapeManager &manager) { manager.removeSelect(); });
}

void BM_clear(benchmark::State &state)
{
    deleteShapes(state, [](ZTShapeManager &manager) { manager.clear(); });
}

/** As after opening a file: none of the items was painted, selected or in the tree's view. */
void BM_clearAfterLoad(benchmark::State &state)
{
    QByteArray bytes;
    {
        Drawing drawing(Tree::None, countOf(state));
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        drawing.manager().save(stream);
    }
    for (auto _ : state) {
        state.PauseTiming();
        ZTShapeManager manager(nullptr);
        QDataStream stream(bytes);
        manager.load(stream);
        state.ResumeTiming();
        manager.clear();
        state.PauseTiming();
        if (!manager.getShapeList().isEmpty())
            state.SkipWithError("not all are gone");
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void BM_closeDocument(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>(Tree::Shown, countOf(state));
        drawing->selectAllInScene();
        QApplication::processEvents();
        state.ResumeTiming();
        drawing.reset();
    }
    state.SetComplexityN(state.range(0));
}

/** One rectangle repeated to as many as the benchmark asks for, tree attached. */
void BM_addMatrix(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>(Tree::Shown, 1);
        drawing->selectAllInScene();
        state.ResumeTiming();
        const int added = drawing->manager().addMatrix(countOf(state) / 10, 10, 10.0, 10.0).size();
        QApplication::processEvents();
        state.PauseTiming();
        if (added != countOf(state) - 1)
            state.SkipWithError("copies are missing");
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark *bench)
{
    bench->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();
}

} // namespace

BENCHMARK(BM_create)->Apply(sizes);
BENCHMARK(BM_createWithTree)->Apply(sizes);
BENCHMARK(BM_addMatrix)->Apply(sizes);
BENCHMARK(BM_selectAllInScene)->Apply(sizes);
BENCHMARK(BM_selectEverySecondInScene)->Apply(sizes);
BENCHMARK(BM_selectAllInTree)->Apply(sizes);
BENCHMARK(BM_clearSelectionInTree)->Apply(sizes);
BENCHMARK(BM_getShapeLines)->Apply(sizes);
BENCHMARK(BM_getSelectedShapeLines)->Apply(sizes);
BENCHMARK(BM_removeSelect)->Apply(sizes);
BENCHMARK(BM_removeEverySecond)->Apply(sizes);
BENCHMARK(BM_clear)->Apply(sizes);
BENCHMARK(BM_clearAfterLoad)->Apply(sizes);
BENCHMARK(BM_closeDocument)->Apply(sizes);

int main(int argc, char **argv)
{
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
