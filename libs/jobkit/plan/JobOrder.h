#pragma once

#include <jobkit/plan/JobPlan.h>

#include <functional>
#include <optional>

namespace jobkit {

/** How the pieces of a job are put in order. */
enum class OrderKind : quint8 {
    AsDrawn, ///< no change but for the stages that are asked for
    Nearest, ///< always the nearest end next, from either end, closed ones from any point
    Best     ///< the nearest, then exchanged for as long as that helps
};

/** Whether hatches are kept together before or after the outlines. */
enum class HatchPlace : quint8 { Any, BeforeOutlines, AfterOutlines };

/** What an order must keep to, and how long it may be looked for. */
struct OrderOptions
{
    OrderKind kind = OrderKind::Best;        ///< how it is looked for
    bool isPenByPen = false;                 ///< all of a pen, by its number, before the next
    bool isInnerFirst = false;               ///< an outline inside a closed one comes before it
    HatchPlace hatchPlace = HatchPlace::Any; ///< before or after all outlines

    std::optional<QPointF> headMm; ///< where the head stands before; none: at the first piece
    quint32 seed = 1;              ///< of what is tried: the same seed, the same order
    qint64 mostSteps =
        -1;               ///< exchanges tried beyond the first best; -1: four a piece, 200 at least
    int budgetMs = 20000; ///< time after which the best so far is kept

    /** Told how much is done, 0 to 1, now and then; false keeps the best so far. May be empty. */
    std::function<bool(double done)> progress;
};

/** What ordering brought. */
struct OrderResult
{
    double jumpsBeforeMm = 0.0; ///< with the stages, in the order drawn
    double jumpsAfterMm = 0.0;  ///< never more than before
    bool isCutShort = false;    ///< by the time or by `progress`
};

/**
 * Puts a plan in order, before its passes are laid out.
 *
 * The stages come first: hatches that are to be marked before or after the outlines (as drawn they
 * stay with their shapes), pens, then hatches and outlines, then inner outlines before outer ones;
 * within a stage the pieces are free. Open pieces may be reversed, closed ones may begin at any of
 * their points; the segments of the plan stay the same, as a set.
 *
 * `Best` gives the shortest order there is for up to 6 pieces in a stage, closed ones with no more
 * than 64 points.
 *
 * The same plan, options and seed give the same order, unless the time cuts it short.
 *
 * Failure: a plan that is not sound (`JobPlan::isSound`) stays as it is, and both lengths are 0.
 */
OrderResult orderPlan(JobPlan *plan, const OrderOptions &options);

} // namespace jobkit
