#pragma once

#include <QtPropertyBrowser/QtProperty.h>

#include <QtCore/QVariant>

class QtVariantPropertyManager;
class QtVariantPropertyPrivate;

/**
 * A row of a `QtVariantPropertyManager`: typed, with its value and attributes as `QVariant`.
 *
 * Everything but the user type is asked of and told to the manager.
 */
class QTPROPERTYBROWSER_EXPORT QtVariantProperty : public QtProperty
{
public:
    ~QtVariantProperty() override;

    QVariant value() const;                                  ///< invalid for a group row
    QVariant attributeValue(const QString &attribute) const; ///< invalid if there is none
    int valueType() const;                                   ///< meta-type id of the value, or 0
    int propertyType() const;                                ///< what the row was made as

    /**
     * A meta-type id that the row carries for its user; the library neither sets nor reads it.
     *
     * A group row that stands for a record tells the record's type by it. Range: 0 at first.
     */
    int getUserType() const;
    void setUserType(int metaTypeId);

    /** As `QtVariantPropertyManager::setValue`. */
    void setValue(const QVariant &value);

    /** As `QtVariantPropertyManager::setAttribute`. */
    void setAttribute(const QString &attribute, const QVariant &value);

protected:
    explicit QtVariantProperty(QtVariantPropertyManager *manager);

private:
    friend class QtVariantPropertyManager;

    QtVariantPropertyManager *variantManager() const;

    const std::unique_ptr<QtVariantPropertyPrivate> m_d;
};
