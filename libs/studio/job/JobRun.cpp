#include <studio/job/JobRun.h>

#include <hostkit/items/FontCheck.h>
#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <jobkit/marks/MarkGraphItems.h>

#include <QtCore/QElapsedTimer>

#include <limits>
#include <utility>

namespace studio {

namespace {

/** Time after which the best order so far is kept: somebody waits. */
constexpr int kOrderMs = 3000;

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

/** What a job is made from, of one object; `place` is that in the order of marking. */
jobkit::JobItem itemOf(const ZTMarkGraph &one, const hostkit::MarkUnits &units,
                       const QVector<hostkit::HatchLayer> &layers, int place)
{
    const QVector<jobkit::JobItem> items = jobkit::itemsOf(one, units, {layers});
    jobkit::JobItem item = items.first();
    item.object = place;
    return item;
}

/** Texts that are shown in another font than theirs, with why. */
QStringList withoutTheirFonts(const hostkit::MarkItems &shapes)
{
    QStringList found;
    hostkit::FontCheck fonts;
    for (const ShapeItem *shape : shapes) {
        const QString reason = fonts.reasonFor(*shape);
        if (!reason.isEmpty())
            found << QStringLiteral("%1: %2").arg(hostkit::shapeName(*shape), reason);
    }
    return found;
}

} // namespace

bool operator==(const JobRequest &a, const JobRequest &b)
{
    return a.items == b.items && a.pens == b.pens && a.machine == b.machine &&
           a.settings == b.settings;
}

Gathering gatherItems(const ZTGraphicsDocument &document, GatheredItems *gathered,
                      const GatherProgress &progress, int stepMs)
{
    const hostkit::MarkItems shapes = hostkit::markedItems(document);
    QVector<QPointer<ShapeItem>> kept;
    for (ShapeItem *shape : shapes)
        kept.append(shape);
    hostkit::MarkGraphBuilder builder(document, shapes, EShapeSortType::ShapeSortNone);
    // Marks are gathered first, and made into what a job is made from then: half the way each.
    while (builder.work(stepMs)) {
        if (!progress(builder.done(), 2 * builder.total()))
            return Gathering::Cancelled;
    }
    gathered->notReady = builder.findings().notReady;
    gathered->withoutFonts = withoutTheirFonts(shapes);
    ZTMarkGraph graph = builder.takeUnordered();
    if (graph.objects.size() != kept.size())
        return Gathering::NotWhole;
    const auto units = hostkit::MarkUnits::of(*document.itemMag());
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < kept.size(); ++i) {
        if (!kept[i])
            return Gathering::NotWhole;
        ZTMarkGraph one;
        one.objects.append(std::move(graph.objects[i]));
        gathered->items.append(itemOf(one, units, builder.layers()[i], i));
        gathered->items.last().name = hostkit::shapeName(*kept[i]);
        jobkit::describeShape(*kept[i], &gathered->items.last());
        if (timer.elapsed() >= stepMs) {
            if (!progress(kept.size() + i + 1, 2 * kept.size()))
                return Gathering::Cancelled;
            timer.start();
        }
    }
    gathered->shapes = kept;
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
