#pragma once

#include <jobkit/plan/JobPlan.h>
#include <jobkit/values/MachineProfile.h>

namespace jobkit {

/** What may be wrong with a job. */
enum class FindingKind : quint8 {
    NothingToMark,     ///< no object
    OutsideField,      ///< an object reaches beyond the machine's field
    TooFast,           ///< a pen is faster than the machine
    PenWithoutValues,  ///< once a pen: the job's pens lack it, and `penOf` gives it values
    PenOff,            ///< an object, or a hatch of it, is left out
    DoubledLine,       ///< an outline lies on another, or on itself
    CoveredLine,       ///< a part of an outline does
    ZeroLength,        ///< a piece without a length
    HatchTooClose,     ///< hatch lines nearer to each other than the limit
    SerialUsedUp,      ///< a text has no further number
    CharactersMissing, ///< a text holds what its font does not
    NotANumber         ///< a coordinate that cannot be marked
};

/** One finding, so that a click can show it. */
struct JobFinding
{
    FindingKind kind = FindingKind::NothingToMark; ///< what is wrong
    int object = -1;                               ///< of the item; -1: the job as a whole
    int otherObject = -1;                          ///< on which a line lies
    QPointF atMm;                                  ///< where to look
    QString text;                                  ///< one sentence, translated
};

/** What the checks hold a job against. */
struct CheckLimits
{
    double leastHatchMm = 0.01; ///< between neighbouring hatch lines; 0: any
    int mostFindings = 1000;    ///< of each kind
};

/**
 * Looks a job over before it is marked; the findings by kind, then by object.
 *
 * `pens` are those that somebody gave the job; none for a drawing without pens of its own. Each
 * kind is told once an object, a pen without values once at its first object. Lines lie on each
 * other where they are no farther apart than a micrometre over more than a micrometre; hatch lines
 * are not compared with outlines.
 */
QVector<JobFinding> checkJob(const QVector<JobItem> &items, const QVector<Pen> &pens,
                             const MachineProfile &profile, const CheckLimits &limits = {});

} // namespace jobkit
