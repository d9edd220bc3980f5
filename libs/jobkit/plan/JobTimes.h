#pragma once

#include <jobkit/plan/JobPlan.h>
#include <jobkit/values/MachineProfile.h>

#include <map>
#include <optional>
#include <vector>

namespace jobkit {

/** Seconds of a job or of a share of it. */
struct TimeSums
{
    double markS = 0.0;  ///< while the laser is on
    double jumpS = 0.0;  ///< between the pieces
    double delayS = 0.0; ///< where the head waits; on a gantry on dots alone

    /** All of it: marking, jumping and waiting. */
    double totalS() const { return markS + jumpS + delayS; }
    TimeSums &operator+=(const TimeSums &other);
};

/**
 * How long a job takes, by the formulas of `docs/job-time.md`.
 *
 * A jump, with its delay, counts to the piece that it leads to.
 */
struct JobTimes
{
    TimeSums all;                     ///< of the whole job
    std::map<int, TimeSums> byPen;    ///< by the number of the pen
    std::map<int, TimeSums> byObject; ///< by `JobItem::object`
    std::map<int, TimeSums> byPass;   ///< by the pass, counted from 1

    /** When the head comes to each point, in the plan's order: piece after piece. Never falls. */
    std::vector<double> vertexS;
    /** Index in `vertexS` of each piece's first point; one more entry at the end. */
    std::vector<qint64> firstVertex;
};

/** Where the head is at a moment of a job. */
struct HeadPlace
{
    int piece = -1;  ///< the one being marked, or that the head jumps to; -1: no piece at all
    int segment = 0; ///< of that piece, counted from 0
    QPointF pointMm; ///< where it is; frame of the plan
    bool isMarking = false; ///< false: jumping, or waiting at an end
};

/**
 * Reckons the time of a plan whose passes are laid out.
 *
 * `headMm` is where the head stands before; without it, the head stands at the first piece. A pen
 * that is faster than the machine is reckoned with the machine's speed.
 *
 * Failure: a plan that is not sound (`JobPlan::isSound`) takes no time, at any of its points.
 */
JobTimes jobTimes(const JobPlan &plan, const QVector<Pen> &pens, const MachineProfile &profile,
                  const std::optional<QPointF> &headMm = std::nullopt);

/**
 * The time of several parts with the same plan: each part after the first begins where the one
 * before it ended. Range: `parts` from 1.
 */
TimeSums partsTime(const JobPlan &plan, const QVector<Pen> &pens, const MachineProfile &profile,
                   const std::optional<QPointF> &headMm, int parts);

/** Where the head is `seconds` after the start: between two points it moves evenly. */
HeadPlace headAt(const JobPlan &plan, const JobTimes &times, double seconds);

} // namespace jobkit
