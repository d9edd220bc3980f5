#pragma once

#include <ZTDrawEngineLib/properties/ZTAbstractPropertySetHelper.h>

/**
 * The sub-rows of a `ZTFontParam`: "type", "wordSpac", "rowSpac", "font" and, where the manager
 * supports the type `ZTShxFontParam`, "shxFont". Each is the field as it stands.
 *
 * The names of "type" are those of the enumerators, all three of them, and are not translated.
 */
class ZTDRAWENGINELIB_EXPORT ZTFontPropertySetHelper : public ZTAbstractPropertySetHelper
{
public:
    explicit ZTFontPropertySetHelper(QtVariantPropertyManager *rowManager);
    ~ZTFontPropertySetHelper() override;

    void addProperty(const QObject *object, const QMetaProperty &property,
                     QtVariantProperty *parent) override;
    QVariant valueChanged(const QObject *object, const QMetaProperty &property, const QString &name,
                          const QVariant &value) override;
    void setValue(QtVariantProperty *parent, const QVariant &value) override;
    QVariant getValue(QtVariantProperty *parent) override;
};
