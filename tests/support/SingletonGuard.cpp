#include "SingletonGuard.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace {

void releaseAll()
{
    ZTCoord::release();
    ZTCurveTolerance::setToleranceMm(0.0);
    ZTPointSort::release();
    ZTVariantTextManager::release();
    ZTVariantText::setClock({});
    ZTShxFontManager::release();
}

} // namespace

namespace testsupport {

SingletonGuard::SingletonGuard() { releaseAll(); }

SingletonGuard::~SingletonGuard() { releaseAll(); }

} // namespace testsupport
