#pragma once

#include <vectorkit/VectorDrawing.h>

#include <functional>

namespace vectorkit {

/** What to clean; all of it is off at first. Lengths in millimetres. */
struct CleanOptions
{
    bool dropZeroLength = false; ///< pieces without length, dots among them
    bool dropDoubles = false;    ///< what is drawn twice, within `sameMm`
    double sameMm = 0.01;        ///< how far apart two lines are one, greater than 0
    double joinMm = -1.0;        ///< ends so near are joined and outlines closed; below 0: off
    double simplifyMm = 0.0;     ///< fewer points, so near to the lines as they are; 0: off
    double fitArcsMm = 0.0;      ///< arcs for fine polylines, so near to them; 0: off
    bool weld = false;           ///< closed outlines and areas that overlap become one
    Qt::FillRule weldRule = Qt::OddEvenFill; ///< what is inside where outlines cross
    bool order = false;                      ///< short ways, inner before outer
    double toleranceMm = 0.005;              ///< of curves where they must be flattened

    /** Told how much is done, 0 to 1, now and then; false cancels. May be empty. */
    std::function<bool(double done)> progress;
};

/** Figures before and after. */
struct CleanReport
{
    qint64 zeroLength = 0;      ///< pieces of no length
    qint64 doubled = 0;         ///< pieces, or parts of them, that another one covers
    double doubledMm = 0.0;     ///< their length in all
    qint64 joined = 0;          ///< pairs of ends that are one point now
    qint64 closed = 0;          ///< outlines that were open
    qint64 pathsBefore = 0;     ///< paths that there were
    qint64 pathsAfter = 0;      ///< paths that are left
    qint64 piecesBefore = 0;    ///< pieces that there were
    qint64 piecesAfter = 0;     ///< pieces that are left
    double jumpsBeforeMm = 0.0; ///< ways between the paths of each layer, in order
    double jumpsAfterMm = 0.0;  ///< likewise, after
};

/**
 * Cleans a drawing in this order: no length, doubles, joining, simplifying, fitting, welding,
 * order.
 *
 * What differs in layer, pen, colour or width is never joined nor taken for a double. Filled shapes
 * keep their outlines as they are but for simplifying, fitting and welding. The order changes
 * within a layer only, and texts stay. Order: any thread. Failure: false when cancelled; the
 * drawing is as it was. `report` may be null.
 */
bool cleanDrawing(VectorDrawing *drawing, const CleanOptions &options, CleanReport *report);

/** What cleaning would mend, without doing it: ends within `joinMm`, doubles within `sameMm`. */
CleanReport cleaningNeeds(const VectorDrawing &drawing, double joinMm, double sameMm);

} // namespace vectorkit
