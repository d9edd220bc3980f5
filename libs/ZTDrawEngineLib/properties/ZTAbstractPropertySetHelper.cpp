#include <ZTDrawEngineLib/properties/ZTAbstractPropertySetHelper.h>

ZTAbstractPropertySetHelper::ZTAbstractPropertySetHelper(QtVariantPropertyManager *rowManager)
    : manager(rowManager)
{
}

ZTAbstractPropertySetHelper::~ZTAbstractPropertySetHelper() = default;
