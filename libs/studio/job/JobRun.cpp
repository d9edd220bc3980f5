#include <studio/job/JobRun.h>

#include <studio/ShapeKinds.h>

#include <hostkit/marks/MarkGraphBuilder.h>
#include <jobkit/marks/MarkGraphItems.h>

namespace studio {

namespace {

/** Time after which the best order so far is kept: somebody waits. */
constexpr int kOrderMs = 3000;

} // namespace

bool gatherItems(const ZTGraphicsDocument &document, GatheredItems *gathered)
{
    const hostkit::MarkItems shapes = hostkit::markedItems(document);
    hostkit::MarkGraphBuilder builder(document, shapes, EShapeSortType::ShapeSortNone);
    while (builder.work(1000)) {
    }
    const hostkit::DrawingMarks marks = builder.take();
    if (!marks.isWhole() || marks.graph.objects.size() != shapes.size())
        return false;
    gathered->items = jobkit::itemsOf(marks.graph, marks.units);
    gathered->notReady = marks.findings.notReady;
    gathered->shapes.clear();
    for (int i = 0; i < shapes.size(); ++i) {
        gathered->items[i].name = shapeName(*shapes[i]);
        gathered->shapes.append(shapes[i]);
    }
    return true;
}

std::shared_ptr<const Job> makeJob(const JobRequest &request, const std::atomic<bool> &isGivenUp)
{
    auto job = std::make_shared<Job>();
    job->request = request;
    job->plan = jobkit::planOf(request.items, request.pens);
    jobkit::OrderOptions options;
    options.kind = request.settings.order;
    options.isPenByPen = request.settings.isPenByPen;
    options.isInnerFirst = request.settings.isInnerFirst;
    options.hatchPlace = request.settings.hatchPlace;
    options.headMm = job->headMm();
    options.budgetMs = kOrderMs;
    options.progress = [&isGivenUp](double) { return !isGivenUp; };
    job->order = jobkit::orderPlan(&job->plan, options);
    jobkit::layOutPasses(&job->plan, jobkit::PassOrder::WholeJob);
    job->times = jobkit::jobTimes(job->plan, request.pens, request.machine, job->headMm());
    job->findings = jobkit::checkJob(request.items, request.pens, request.machine);
    return job;
}

} // namespace studio
