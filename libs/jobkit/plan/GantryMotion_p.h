#pragma once

#include <QtCore/QPointF>

#include <vector>

namespace jobkit {

/** One straight move of a machine with mass. */
struct GantryMove
{
    double lengthMm = 0.0; ///< greater than 0
    QPointF direction;     ///< of length 1
    double speedMmPerS = 0.0;
    bool startsAtRest = false; ///< besides the first, which always does
};

/**
 * The seconds that each move takes when all are planned ahead: from rest to rest, each with one
 * trapezoid of speed, at no corner faster than its junction allows.
 */
std::vector<double> gantrySeconds(const std::vector<GantryMove> &moves, double accelerationMmPerS2,
                                  double junctionDeviationMm);

} // namespace jobkit
