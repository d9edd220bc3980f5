#include <jobkit/plan/GantryMotion_p.h>

#include <algorithm>
#include <cmath>

namespace jobkit {

namespace {

/**
 * The square of the speed at which a corner may be taken: that of a circle tangent to both ways
 * whose nearest point is the deviation away from the corner.
 */
double junctionSpeedSquared(const GantryMove &in, const GantryMove &out, double acceleration,
                            double deviation)
{
    const double slower = std::min(in.speedMmPerS, out.speedMmPerS);
    // Between the way back and the way on: 1 where it turns back, -1 straight on.
    const double cosine = std::clamp(-QPointF::dotProduct(in.direction, out.direction), -1.0, 1.0);
    const double sine = std::sqrt((1.0 - cosine) / 2.0);
    if (sine >= 1.0)
        return slower * slower;
    return std::min(slower * slower, acceleration * deviation * sine / (1.0 - sine));
}

/** Squares of the speeds at the start of each move and, last, at the end. */
std::vector<double> speedsSquared(const std::vector<GantryMove> &moves, double acceleration,
                                  double deviation)
{
    std::vector<double> squares(moves.size() + 1, 0.0);
    for (size_t i = 1; i < moves.size(); ++i) {
        if (!moves[i].startsAtRest)
            squares[i] = junctionSpeedSquared(moves[i - 1], moves[i], acceleration, deviation);
    }
    for (size_t i = moves.size(); i-- > 0;)
        squares[i] = std::min(squares[i], squares[i + 1] + 2.0 * acceleration * moves[i].lengthMm);
    for (size_t i = 0; i < moves.size(); ++i)
        squares[i + 1] =
            std::min(squares[i + 1], squares[i] + 2.0 * acceleration * moves[i].lengthMm);
    return squares;
}

/** Speeding up, holding, slowing down; without holding where the way is too short. */
double trapezoidSeconds(const GantryMove &move, double startSquared, double endSquared,
                        double acceleration)
{
    const double reach = (startSquared + endSquared + 2.0 * acceleration * move.lengthMm) / 2.0;
    const double peakSquared = std::min(move.speedMmPerS * move.speedMmPerS, reach);
    const double peak = std::sqrt(peakSquared);
    const double ramps = (2.0 * peakSquared - startSquared - endSquared) / (2.0 * acceleration);
    const double held = std::max(0.0, move.lengthMm - ramps);
    return (2.0 * peak - std::sqrt(startSquared) - std::sqrt(endSquared)) / acceleration +
           held / peak;
}

} // namespace

std::vector<double> gantrySeconds(const std::vector<GantryMove> &moves, double accelerationMmPerS2,
                                  double junctionDeviationMm)
{
    const std::vector<double> squares =
        speedsSquared(moves, accelerationMmPerS2, junctionDeviationMm);
    std::vector<double> seconds;
    seconds.reserve(moves.size());
    for (size_t i = 0; i < moves.size(); ++i)
        seconds.push_back(
            trapezoidSeconds(moves[i], squares[i], squares[i + 1], accelerationMmPerS2));
    return seconds;
}

} // namespace jobkit
