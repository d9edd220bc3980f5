#pragma once

#include <ZTDrawEngineLib/properties/ZTAbstractPropertySetHelper.h>

/**
 * The sub-rows of a `ZTFillParam`: "fillType", "spac", "angle" and "isEnableBorder".
 *
 * Frame: the row "spac" shows millimetres, at least 0.01 and in steps of 0.1; the record holds what
 * `ZTCoord::mm2pix` makes of them.
 * Kept: the spacing 2.0 of a new record means millimetres, unlike every other one. It shows as 2.0
 * when the rows are made, choosing a fill type turns it into pixels, and the first refresh shows it
 * like any other.
 */
class ZTDRAWENGINELIB_EXPORT ZTFillParamPropertySetHelper : public ZTAbstractPropertySetHelper
{
public:
    explicit ZTFillParamPropertySetHelper(QtVariantPropertyManager *rowManager);
    ~ZTFillParamPropertySetHelper() override;

    void addProperty(const QObject *object, const QMetaProperty &property,
                     QtVariantProperty *parent) override;
    QVariant valueChanged(const QObject *object, const QMetaProperty &property, const QString &name,
                          const QVariant &value) override;
    void setValue(QtVariantProperty *parent, const QVariant &value) override;
    QVariant getValue(QtVariantProperty *parent) override;
};
