#pragma once

#include <ZTDrawEngineLib/properties/ZTAbstractPropertySetHelper.h>

/**
 * The sub-rows of a `ZTShxFontParam`: "zhName" and "enName", choices among the big and the regular
 * fonts of `ZTShxFontManager`, and "height".
 *
 * An edit gives a record whose font pair is loaded and has its height: it is ready to draw.
 * Failure: an index outside the fonts is no edit; a name that is not among them leaves its row past
 * the last entry, where it shows no text.
 * Kept: new rows show the first entries; the first `setValue` puts them on the right ones.
 */
class ZTDRAWENGINELIB_EXPORT ZTShxFontPropertySetHelper : public ZTAbstractPropertySetHelper
{
public:
    explicit ZTShxFontPropertySetHelper(QtVariantPropertyManager *rowManager);
    ~ZTShxFontPropertySetHelper() override;

    void addProperty(const QObject *object, const QMetaProperty &property,
                     QtVariantProperty *parent) override;
    QVariant valueChanged(const QObject *object, const QMetaProperty &property, const QString &name,
                          const QVariant &value) override;
    void setValue(QtVariantProperty *parent, const QVariant &value) override;
    QVariant getValue(QtVariantProperty *parent) override;
};
