#pragma once

#include <hostkit/files/Failure.h>
#include <hostkit/marks/DrawingInput.h>
#include <hostkit/marks/MarkPathMeasure.h>

#include <QtGui/QPainterPath>

#include <functional>
#include <vector>

namespace hostkit {

/** What to make of plotter drawings. Lengths are millimetres on the marked result. */
struct MarkJobOptions
{
    FillType hatch = FillType::None; ///< of closed outlines; None: no hatch
    double spacingMm = 0.5;          ///< distance of hatch lines, greater than 0
    double angleDeg = 0.0;           ///< direction of hatch lines; positive turns them clockwise
    bool outline = true;             ///< false: only the hatch is marked
    EShapeSortType order = EShapeSortType::ShapeSortNone; ///< of the objects; None: as given
    int columns = 1;        ///< copies of the whole layout side by side, at least 1
    int rows = 1;           ///< copies of the whole layout one below the other, at least 1
    QSizeF gapMm{2.0, 2.0}; ///< space between copies, and in x between several drawings
    double scale = 1.0;     ///< enlarges the imported drawings, greater than 0
    double rotateDeg = 0.0; ///< turns each drawing; positive is clockwise

    /** Told what is going on before each step that may take long; may be empty. */
    std::function<void(const QString &step)> progress;
};

/** An ordered mark graph and what the ordering brought. */
struct MarkJobResult
{
    ZTMarkGraph graph;      ///< what the head follows, in order
    MarkPathMeasure before; ///< in the order of the drawings, copies row by row
    MarkPathMeasure after;  ///< in the order asked for
};

/** Why a job was not done, and for which drawing. */
struct MarkJobFailure : Failure
{
    int drawing = -1; ///< index of the drawing at fault, -1 when it is the whole
};

/**
 * Turns plotter drawings into ordered mark paths.
 *
 * Each drawing becomes one object, scaled and turned, its box's top-left corner at its place: the
 * first at (0, 0), the others to the right of it. The row of them is repeated as a matrix. Hatch
 * lines keep their spacing and their angle whatever the scale and the rotation.
 *
 * The order of objects follows their outlines also when only the hatch is kept.
 *
 * The job is laid out on a drawing surface of its own: each copy is an item of a `ZTShapeManager`,
 * which reads its drawing anew and hatches it by itself. A copy takes about 3 KB and 25
 * microseconds beyond its own paths and hatch.
 *
 * Order: on the GUI thread of a `QApplication`, after `registerFactories`. The files behind the
 * drawings must not change meanwhile.
 * Failure: false with the reason (`NotPossible`), before any memory is spent on a job beyond the
 * limits. Limit: 1,000,000 hatch lines laid over a drawing, and in the whole job 1,000,000 objects
 * and 20,000,000 points of outlines and hatch segments, the segments as estimated beforehand.
 */
bool buildMarkJob(const std::vector<std::unique_ptr<DrawingInput>> &drawings,
                  const MarkJobOptions &options, MarkJobResult *result, MarkJobFailure *failure);

/**
 * The same for drawings that are paths already, at their true size.
 *
 * Frame: millimetres, y down; the box of each drawing comes to its place in the row.
 * Failure, limits: as above, and false for a drawing without any length.
 */
bool buildPathJob(const std::vector<QPainterPath> &drawingsMm, const MarkJobOptions &options,
                  MarkJobResult *result, MarkJobFailure *failure);

} // namespace hostkit
