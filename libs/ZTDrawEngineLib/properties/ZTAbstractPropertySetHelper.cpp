#include <ZTDrawEngineLib/properties/ZTAbstractPropertySetHelper.h>

#include <QtCore/QLoggingCategory>

// Kept: the category belongs to this family, and nothing is written to it.
Q_DECLARE_LOGGING_CATEGORY(LogPropertySetHelper)
Q_LOGGING_CATEGORY(LogPropertySetHelper, "ZTDrawEngineLib.PropertySetHelper")

ZTAbstractPropertySetHelper::ZTAbstractPropertySetHelper(QtVariantPropertyManager *rowManager)
    : manager(rowManager)
{
}

ZTAbstractPropertySetHelper::~ZTAbstractPropertySetHelper() = default;
