#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <cmath>

namespace hostkit {

MarkUnits MarkUnits::current()
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    return MarkUnits{coord.screen2mark() * coord.mm2pix(1.0), false};
}

MarkUnits MarkUnits::of(const ZTShapeManager &manager)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    const auto [scaleX, scaleY] = manager.getScale();
    const double scale = std::sqrt(std::abs(double(scaleX) * double(scaleY)));
    // A scale left as it starts is the usual one cut to a float.
    const auto usual = static_cast<float>(coord.screen2mark());
    const bool isUsual = std::abs(scaleX) == usual && std::abs(scaleY) == usual;
    if (isUsual || !(scale > 0.0) || !std::isfinite(scale))
        return current();
    return MarkUnits{scale * coord.mm2pix(1.0), false};
}

} // namespace hostkit
