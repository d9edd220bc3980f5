#include <studio/job/JobRun.h>

#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <jobkit/marks/MarkGraphItems.h>

#include <limits>

namespace studio {

namespace {

/** Time after which the best order so far is kept: somebody waits. */
constexpr int kOrderMs = 3000;
constexpr int kGatherMs = 50;

/**
 * Without a time: exchanges that are tried beyond the first best. There may be fifty parts of tens
 * of thousands of pieces, whose further exchanges take longer than all else and gain a percent.
 */
constexpr qint64 kStepsAPiece = 4;
constexpr qint64 kLeastSteps = 200;
constexpr qint64 kMostSteps = 2000;

/** The times of a part that begins where one like it ended. */
jobkit::JobTimes furtherTimes(const Job &job)
{
    if (job.plan.pieces.isEmpty())
        return {};
    const QPointF endMm = job.plan.pieces.last().pointsMm.last();
    jobkit::JobTimes times =
        jobkit::jobTimes(job.plan, job.request.pens, job.request.machine, endMm);
    times.vertexS = {};
    times.firstVertex = {};
    return times;
}

} // namespace

bool operator==(const JobRequest &a, const JobRequest &b)
{
    return a.items == b.items && a.pens == b.pens && a.machine == b.machine &&
           a.settings == b.settings;
}

Gathering gatherItems(const ZTGraphicsDocument &document, GatheredItems *gathered,
                      const GatherProgress &progress)
{
    const hostkit::MarkItems shapes = hostkit::markedItems(document);
    QVector<QPointer<ShapeItem>> kept;
    for (ShapeItem *shape : shapes)
        kept.append(shape);
    hostkit::MarkGraphBuilder builder(document, shapes, EShapeSortType::ShapeSortNone);
    while (builder.work(kGatherMs)) {
        if (!progress(builder.done(), builder.total()))
            return Gathering::Cancelled;
    }
    gathered->notReady = builder.findings().notReady;
    const ZTMarkGraph graph = builder.takeUnordered();
    const auto units = hostkit::MarkUnits::of(*document.itemMag());
    gathered->items = jobkit::itemsOf(graph, units, builder.layers());
    gathered->shapes = kept;
    if (graph.objects.size() != kept.size())
        return Gathering::NotWhole;
    for (int i = 0; i < kept.size(); ++i) {
        if (!kept[i])
            return Gathering::NotWhole;
        gathered->items[i].name = hostkit::shapeName(*kept[i]);
        jobkit::describeShape(*kept[i], &gathered->items[i]);
    }
    return Gathering::Done;
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
    options.budgetMs = request.isTimed ? kOrderMs : std::numeric_limits<int>::max();
    if (!request.isTimed)
        options.mostSteps = qBound(kLeastSteps, kStepsAPiece * job->plan.pieces.size(), kMostSteps);
    options.progress = [&isGivenUp](double) { return !isGivenUp; };
    job->order = jobkit::orderPlan(&job->plan, options);
    jobkit::layOutPasses(&job->plan, jobkit::PassOrder::WholeJob);
    job->times = jobkit::jobTimes(job->plan, request.pens, request.machine, job->headMm());
    job->furtherTimes = furtherTimes(*job);
    job->findings = jobkit::checkJob(request.items, request.pens, request.machine);
    return job;
}

} // namespace studio
