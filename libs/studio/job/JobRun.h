#pragma once

#include <studio/job/JobSettings.h>
#include <studio/shapes/ShapeItems.h>

#include <jobkit/checks/JobChecks.h>
#include <jobkit/plan/JobTimes.h>

#include <atomic>
#include <functional>
#include <memory>

namespace studio {

/** All that a job is made from: a value, so that it can be made in another thread. */
struct JobRequest
{
    QVector<jobkit::JobItem> items; ///< `object` of each is its index
    QVector<jobkit::Pen> pens;
    jobkit::MachineProfile machine;
    JobSettings settings;
    bool isTimed = true; ///< the search for an order ends after a moment; else after its steps
};

/** Whether two requests ask for the same marks on the same machine, to the last bit. */
bool operator==(const JobRequest &a, const JobRequest &b);

/** A job as it is previewed, timed and written: the same plan for all of them. */
struct Job
{
    JobRequest request;
    jobkit::JobPlan plan; ///< ordered, its passes laid out
    jobkit::JobTimes times;
    jobkit::JobTimes furtherTimes; ///< sums alone: of each further part, from where one ended
    QVector<jobkit::JobFinding> findings;
    jobkit::OrderResult order;

    /** Where the head stands before the job: at the machine's zero. Frame: mm, as of the plan. */
    QPointF headMm() const { return request.machine.fromMachine({}); }
};

/** What a drawing marks. */
struct GatheredItems
{
    QVector<jobkit::JobItem> items;      ///< `object` of each is its index
    QVector<QPointer<ShapeItem>> shapes; ///< behind the items
    QStringList notReady;     ///< shapes that mark something else than asked for, with why
    QStringList withoutFonts; ///< texts that are not in their fonts, with which
};

enum class Gathering : quint8 {
    Done,
    NotWhole, ///< not all shapes came out as marks
    Cancelled
};

/** Told how far it is: `done` of `total`. False gives up. May run events. */
using GatherProgress = std::function<bool(int done, int total)>;

/**
 * Gathers what a drawing marks, what is marked first first. Tells `progress` each time that it has
 * worked for `stepMs`, or longer where a single shape takes longer. Order: GUI thread.
 */
Gathering gatherItems(const ZTGraphicsDocument &document, GatheredItems *gathered,
                      const GatherProgress &progress, int stepMs = 25);

/** Plans, orders, times and checks a job. Any thread. `isGivenUp` keeps the best order so far. */
std::shared_ptr<const Job> makeJob(const JobRequest &request, const std::atomic<bool> &isGivenUp);

} // namespace studio
