// The shape panel with thousands of shapes selected, and the list of shapes with as many rows.

#include <studio/list/ShapeListModel.h>
#include <studio/list/ShapeOrder.h>
#include <studio/panel/PanelSection.h>
#include <studio/panel/ShapeEdits.h>

#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoStack>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kInRow = 100;
constexpr double kPitchPx = 50.0;

std::unique_ptr<ZTGraphicsDocument> documentOf(int count)
{
    auto document = std::make_unique<ZTGraphicsDocument>();
    for (int i = 0; i < count; ++i) {
        studio::ShapeItem *item = document->itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        item->setPos((i % kInRow) * kPitchPx, (i / kInRow) * kPitchPx);
    }
    return document;
}

void selectAll(const ZTGraphicsDocument &document)
{
    studio::selectOnly(*document.scene(), studio::shapeItemsOf(*document.scene()));
}

/** One edit of the width of each, with its step on the undo stack. */
void BM_widthOfEach(benchmark::State &state)
{
    const auto document = documentOf(static_cast<int>(state.range(0)));
    selectAll(*document);
    studio::ShapeEdits edits(*document);
    const studio::ShapeEdits::Frame each{{0, 0}, studio::ShapeEdits::Extent::Each};
    double mm = 10.0;
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        mm = mm == 10.0 ? 12.0 : 10.0;
        edits.setSize(Qt::Horizontal, mm, each);
    }
}
BENCHMARK(BM_widthOfEach)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_placeOfAll(benchmark::State &state)
{
    const auto document = documentOf(static_cast<int>(state.range(0)));
    selectAll(*document);
    studio::ShapeEdits edits(*document);
    double mm = 0.0;
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        edits.setPlace(Qt::Horizontal, mm += 0.001, {});
    }
}
BENCHMARK(BM_placeOfAll)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_hatchOfEach(benchmark::State &state)
{
    const auto document = documentOf(static_cast<int>(state.range(0)));
    selectAll(*document);
    studio::ShapeEdits edits(*document);
    double mm = 1.0;
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        edits.setHatch([mm = mm += 0.001](ZTFillParam &fill) { fill.spac = mm; });
    }
}
BENCHMARK(BM_hatchOfEach)->Arg(10000)->Unit(benchmark::kMillisecond);

/** What the panel reads after each step. */
void BM_readBoxes(benchmark::State &state)
{
    const auto document = documentOf(static_cast<int>(state.range(0)));
    selectAll(*document);
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        const studio::ShapeItems items = studio::selectedShapeItems(*document->scene());
        benchmark::DoNotOptimize(studio::outlineBoxMm(items));
        benchmark::DoNotOptimize(studio::commonValue(items, &studio::turnDeg));
    }
}
BENCHMARK(BM_readBoxes)->Arg(10000)->Unit(benchmark::kMillisecond);

/** The list looks again after a step that left all rows where they are. */
void BM_listRefresh(benchmark::State &state)
{
    const auto document = documentOf(static_cast<int>(state.range(0)));
    studio::ShapeListModel list(*document);
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        benchmark::DoNotOptimize(list.refresh());
    }
}
BENCHMARK(BM_listRefresh)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

/** The last shape to the top and back, with all rows read anew. */
void BM_listReorder(benchmark::State &state)
{
    const auto document = documentOf(static_cast<int>(state.range(0)));
    studio::ShapeListModel list(*document);
    studio::ShapeItems order = studio::markingOrder(*document->scene());
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        order.move(order.size() - 1, 0);
        studio::setMarkingOrder(*document, order);
        benchmark::DoNotOptimize(list.refresh());
    }
}
BENCHMARK(BM_listReorder)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    hostkit::registerFactories();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
