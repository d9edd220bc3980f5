#include <studio/canvas/GridStep.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <cmath>

namespace studio {

namespace {

constexpr double kLeastPx = 8.0;
constexpr int kLeastPower = -3; ///< a micrometre
constexpr int kMostPower = 3;

} // namespace

double gridStepMm(double viewScale)
{
    const double pxPerMm = ZTCoord::getInstance()->mm2pix(1.0) * viewScale;
    for (int power = kLeastPower; power <= kMostPower; ++power) {
        for (const int digit : {1, 2, 5}) {
            // Divided by whole numbers, so that 0.1 is the nearest number to it.
            const double step =
                power < 0 ? digit / std::pow(10.0, -power) : digit * std::pow(10.0, power);
            if (step * pxPerMm >= kLeastPx)
                return step;
        }
    }
    return std::pow(10.0, kMostPower);
}

int gridMajorEvery(double stepMm)
{
    const double power = std::pow(10.0, std::floor(std::log10(stepMm) + 1e-9));
    const int digit = static_cast<int>(std::lround(stepMm / power));
    return digit == 1 ? 10 : digit == 2 ? 5 : 2;
}

} // namespace studio
