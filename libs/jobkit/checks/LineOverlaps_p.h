#pragma once

#include <jobkit/plan/JobPlan.h>

namespace jobkit {

/** Two pieces of which one lies on the other for a stretch. */
struct LineOverlap
{
    int first = 0; ///< index of the piece, the earlier one
    int second = 0;
    bool isWhole = false; ///< the two segments are the same; otherwise a part of one
    QPointF atMm;         ///< the middle of the stretch
};

/** The first overlap of each pair of objects. Coordinates must be finite. */
QVector<LineOverlap> lineOverlaps(const QVector<PlanPiece> &pieces);

} // namespace jobkit
