#include <QtPropertyBrowser/QtVariantProperty.h>

#include <QtPropertyBrowser/QtVariantPropertyManager.h>

class QtVariantPropertyPrivate
{
public:
    int userType = QMetaType::UnknownType;
};

QtVariantProperty::QtVariantProperty(QtVariantPropertyManager *manager)
    : QtProperty(manager), m_d(new QtVariantPropertyPrivate)
{
}

QtVariantProperty::~QtVariantProperty() = default;

QVariant QtVariantProperty::value() const { return variantManager()->value(this); }

QVariant QtVariantProperty::attributeValue(const QString &attribute) const
{
    return variantManager()->attributeValue(this, attribute);
}

int QtVariantProperty::valueType() const { return variantManager()->valueType(this); }

int QtVariantProperty::propertyType() const { return variantManager()->propertyType(this); }

int QtVariantProperty::getUserType() const { return m_d->userType; }

void QtVariantProperty::setUserType(int metaTypeId) { m_d->userType = metaTypeId; }

void QtVariantProperty::setValue(const QVariant &value) { variantManager()->setValue(this, value); }

void QtVariantProperty::setAttribute(const QString &attribute, const QVariant &value)
{
    variantManager()->setAttribute(this, attribute, value);
}

/** The manager that the constructor was given: never of another class. */
QtVariantPropertyManager *QtVariantProperty::variantManager() const
{
    return static_cast<QtVariantPropertyManager *>(propertyManager());
}
