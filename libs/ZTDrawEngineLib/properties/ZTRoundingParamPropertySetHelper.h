#pragma once

#include <ZTDrawEngineLib/properties/ZTAbstractPropertySetHelper.h>

/**
 * The sub-rows of a `ZTRoundingParam`: "isEnableRounding", "startAngle", "spanAngle", "diameter"
 * and "itemRotate", each the field as it stands.
 *
 * `roundingFlag` has no row and passes through every edit. `getValue` takes it from the object that
 * the list shows; rows outside a `ZTItemPropertyList` give its default.
 */
class ZTDRAWENGINELIB_EXPORT ZTRoundingParamPropertySetHelper : public ZTAbstractPropertySetHelper
{
public:
    explicit ZTRoundingParamPropertySetHelper(QtVariantPropertyManager *rowManager);
    ~ZTRoundingParamPropertySetHelper() override;

    void addProperty(const QObject *object, const QMetaProperty &property,
                     QtVariantProperty *parent) override;
    QVariant valueChanged(const QObject *object, const QMetaProperty &property, const QString &name,
                          const QVariant &value) override;
    void setValue(QtVariantProperty *parent, const QVariant &value) override;
    QVariant getValue(QtVariantProperty *parent) override;
};
