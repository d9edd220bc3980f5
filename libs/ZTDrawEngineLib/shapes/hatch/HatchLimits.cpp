#include <ZTDrawEngineLib/shapes/hatch/HatchLimits_p.h>

#include <QtCore/QLoggingCategory>

namespace zthatch {

namespace {

Q_LOGGING_CATEGORY(hatchLog, "ZTDrawEngineLib.Hatch")

} // namespace

void warnOfTooManyScanLines(double spac)
{
    qCWarning(hatchLog, "no hatch: a spacing of %g gives more than %d scan lines", spac,
              kMostScanLines);
}

void warnOfTooManyLines(double spac)
{
    qCWarning(hatchLog, "no hatch: a spacing of %g gives more than %d lines", spac,
              kMostHatchLines);
}

void warnOfLostSpacing(double spac)
{
    qCWarning(hatchLog, "no hatch: a spacing of %g is lost in the rounding of coordinates", spac);
}

void warnOfLackingMemory() { qCWarning(hatchLog, "no hatch: not enough memory"); }

} // namespace zthatch
