#include "SingletonGuard.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace {

void releaseAll()
{
    ZTCoord::release();
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
