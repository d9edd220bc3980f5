#include <studio/canvas/GridStep.h>

#include <studio/choices/Units.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <cmath>

namespace studio {

namespace {

constexpr double kLeastPx = 8.0;
constexpr int kLeastPower = -3; ///< a micrometre
constexpr int kLeastPowerOfInch = -5;
constexpr int kMostPower = 3;

/** What the lines count. */
double countedMm(double fixedMm) { return fixedMm > 0.0 ? fixedMm : units::unitMm(); }

int leastPower(double fixedMm)
{
    if (fixedMm > 0.0)
        return 0;
    return units::unit() == LengthUnit::Inch ? kLeastPowerOfInch : kLeastPower;
}

} // namespace

double gridStepMm(double viewScale, double fixedMm)
{
    const double pxPerMm = ZTCoord::getInstance()->mm2pix(1.0) * viewScale;
    const double counted = countedMm(fixedMm);
    for (int power = leastPower(fixedMm); power <= kMostPower; ++power) {
        for (const int digit : {1, 2, 5}) {
            // Divided by whole numbers, so that 0.1 is the nearest number to it.
            const double step = counted * (power < 0 ? digit / std::pow(10.0, -power)
                                                     : digit * std::pow(10.0, power));
            if (step * pxPerMm >= kLeastPx)
                return step;
        }
    }
    return counted * std::pow(10.0, kMostPower);
}

int gridMajorEvery(double stepMm, double fixedMm)
{
    const double step = stepMm / countedMm(fixedMm);
    const double power = std::pow(10.0, std::floor(std::log10(step) + 1e-9));
    const int digit = static_cast<int>(std::lround(step / power));
    return digit == 1 ? 10 : digit == 2 ? 5 : 2;
}

} // namespace studio
