// Making a job at growing sizes: hatch, marks, plan, order, times and checks, each by itself.

#include <studio/job/JobRun.h>

#include <hostkit/items/ItemHatches.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/items/HatchedItems.h>

#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

namespace {

constexpr int kRowsAShape = 100; ///< of hatch lines on a square of 10 mm
constexpr int kShapesARow = 30;

/** Squares of 10 mm with a hatch of a hundred lines each, `segments` lines in all or a few more. */
class Drawing
{
public:
    explicit Drawing(qint64 segments)
    {
        for (qint64 i = 0; i < segments / kRowsAShape; ++i) {
            auto *item = m_document.itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
            item->setPos(double(i % kShapesARow) * 50.0, double(i / kShapesARow) * 50.0);
            give(*item);
        }
    }

    const ZTGraphicsDocument &document() const { return m_document; }

    /** Draws every shape anew at a slightly other width, its hatches with it. */
    void rebuild(double widthShare) const
    {
        for (const studio::ShapeItem *item : studio::shapeItemsOf(*m_document.scene()))
            item->getShapeBase()->setTransformParam(QTransform::fromScale(widthShare, 1.0));
    }

    studio::JobRequest request() const
    {
        studio::GatheredItems gathered;
        studio::gatherItems(m_document, &gathered, [](int, int) { return true; });
        studio::JobRequest request;
        request.items = gathered.items;
        request.pens = jobkit::defaultPens();
        jobkit::profileOnBoard(QStringLiteral("galvo-fiber"), &request.machine);
        return request;
    }

private:
    static void give(studio::ShapeItem &item)
    {
        hostkit::ShapeHatch rows;
        rows.spacingMm = 0.2;
        hostkit::ShapeHatch upright = rows;
        upright.angleDeg = 90.0;
        upright.insetMm = 0.1;
        ZTFillParam fill = item.getFillParam();
        hostkit::ItemExtras extras;
        hostkit::setHatches({rows, upright}, &fill, &extras);
        hostkit::setItemExtras(item, extras);
        item.setFillParam(fill);
        item.getShapeBase()->paint();
    }

    ZTGraphicsDocument m_document;
};

void tell(benchmark::State &state, const jobkit::JobPlan &plan)
{
    state.counters["segments"] = double(plan.segmentCount());
}

void BM_Hatch(benchmark::State &state)
{
    const Drawing drawing(state.range(0));
    double widthShare = 1.0;
    for (auto _ : state) {
        widthShare = 2.0001 - widthShare; // two widths in turns
        drawing.rebuild(widthShare);
    }
}

void BM_Gather(benchmark::State &state)
{
    const Drawing drawing(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing.request().items.size());
}

void BM_Plan(benchmark::State &state)
{
    const studio::JobRequest request = Drawing(state.range(0)).request();
    jobkit::JobPlan plan;
    for (auto _ : state)
        plan = jobkit::planOf(request.items, request.pens);
    tell(state, plan);
}

void BM_Check(benchmark::State &state)
{
    const studio::JobRequest request = Drawing(state.range(0)).request();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            jobkit::checkJob(request.items, request.pens, request.machine).size());
}

/** All of it but the marks, in the order as drawn or the best within the studio's time. */
void BM_MakeJob(benchmark::State &state, jobkit::OrderKind order)
{
    studio::JobRequest request = Drawing(state.range(0)).request();
    request.settings.order = order;
    const std::atomic<bool> isGivenUp{false};
    std::shared_ptr<const studio::Job> job;
    for (auto _ : state)
        job = studio::makeJob(request, isGivenUp);
    tell(state, job->plan);
    state.counters["jump m"] = job->plan.jumpLengthMm() / 1000.0;
}

void sizes(benchmark::internal::Benchmark *bench)
{
    bench->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}
BENCHMARK(BM_Hatch)->Apply(sizes);
BENCHMARK(BM_Gather)->Apply(sizes);
BENCHMARK(BM_Plan)->Apply(sizes);
BENCHMARK(BM_Check)->Apply(sizes);
BENCHMARK_CAPTURE(BM_MakeJob, asDrawn, jobkit::OrderKind::AsDrawn)->Apply(sizes);
BENCHMARK_CAPTURE(BM_MakeJob, nearest, jobkit::OrderKind::Nearest)->Apply(sizes);
BENCHMARK_CAPTURE(BM_MakeJob, best, jobkit::OrderKind::Best)->Apply(sizes)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    jobkit::registerHatchedFactories();
    hostkit::registerFactories();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
