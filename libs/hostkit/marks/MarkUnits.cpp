#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

MarkUnits MarkUnits::current()
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    return MarkUnits{coord.screen2mark() * coord.mm2pix(1.0)};
}

} // namespace hostkit
