#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager_p.h>

#include <QtCore/QMap>

/** What a row is made as when its value type alone does not tell. */
struct QtEnumRow
{
};
struct QtFlagRow
{
};
struct QtGroupRow
{
};

Q_DECLARE_METATYPE(QtEnumRow)
Q_DECLARE_METATYPE(QtFlagRow)
Q_DECLARE_METATYPE(QtGroupRow)

QtVariantPropertyManager::QtVariantPropertyManager(QObject *parent)
    : QtAbstractPropertyManager(parent), m_d(new QtVariantPropertyManagerPrivate(this))
{
}

QtVariantPropertyManager::~QtVariantPropertyManager() { clear(); }

QtVariantProperty *QtVariantPropertyManager::addProperty(int propertyType, const QString &name)
{
    return isPropertyTypeSupported(propertyType) ? m_d->addRow(propertyType, name) : nullptr;
}

int QtVariantPropertyManager::propertyType(const QtProperty *property) const
{
    const VariantRow *row = m_d->row(property);
    return row ? row->propertyType : 0;
}

int QtVariantPropertyManager::valueType(const QtProperty *property) const
{
    return valueType(propertyType(property));
}

QtVariantProperty *QtVariantPropertyManager::variantProperty(const QtProperty *property) const
{
    const VariantRow *row = m_d->row(property);
    return row ? dynamic_cast<QtVariantProperty *>(row->property) : nullptr;
}

bool QtVariantPropertyManager::isPropertyTypeSupported(int propertyType) const
{
    return rowtypes::rowType(propertyType) != nullptr;
}

int QtVariantPropertyManager::valueType(int propertyType) const
{
    const rowtypes::RowType *type = rowtypes::rowType(propertyType);
    return type ? type->valueType() : 0;
}

QStringList QtVariantPropertyManager::attributes(int propertyType) const
{
    QStringList names;
    if (const rowtypes::RowType *type = rowtypes::rowType(propertyType)) {
        const QVector<rowtypes::AttributeSpec> specs = type->attributes();
        for (const rowtypes::AttributeSpec &spec : specs)
            names.append(spec.name);
    }
    return names;
}

int QtVariantPropertyManager::attributeType(int propertyType, const QString &attribute) const
{
    if (const rowtypes::RowType *type = rowtypes::rowType(propertyType)) {
        const QVector<rowtypes::AttributeSpec> specs = type->attributes();
        for (const rowtypes::AttributeSpec &spec : specs) {
            if (spec.name == attribute)
                return spec.type;
        }
    }
    return 0;
}

QVariant QtVariantPropertyManager::value(const QtProperty *property) const
{
    const VariantRow *row = m_d->row(property);
    return row ? row->value : QVariant();
}

QVariant QtVariantPropertyManager::attributeValue(const QtProperty *property,
                                                  const QString &attribute) const
{
    const VariantRow *row = m_d->row(property);
    return row ? row->attributes.value(attribute) : QVariant();
}

int QtVariantPropertyManager::enumTypeId() { return qMetaTypeId<QtEnumRow>(); }

int QtVariantPropertyManager::flagTypeId() { return qMetaTypeId<QtFlagRow>(); }

int QtVariantPropertyManager::groupTypeId() { return qMetaTypeId<QtGroupRow>(); }

int QtVariantPropertyManager::iconMapTypeId() { return qMetaTypeId<QMap<int, QIcon>>(); }

void QtVariantPropertyManager::setValue(QtProperty *property, const QVariant &value)
{
    m_d->setValue(m_d->row(property), value);
}

void QtVariantPropertyManager::setAttribute(QtProperty *property, const QString &attribute,
                                            const QVariant &value)
{
    m_d->setAttribute(m_d->row(property), attribute, value);
}

bool QtVariantPropertyManager::hasValue(const QtProperty *property) const
{
    const VariantRow *row = m_d->row(property);
    return row && row->type && row->type->valueType() != QMetaType::UnknownType;
}

QIcon QtVariantPropertyManager::valueIcon(const QtProperty *property) const
{
    const VariantRow *row = m_d->row(property);
    return row && row->type ? row->type->icon(row->value, row->attributes) : QIcon();
}

QString QtVariantPropertyManager::valueText(const QtProperty *property) const
{
    const VariantRow *row = m_d->row(property);
    return row && row->type ? row->type->text(row->value, row->attributes) : QString();
}

void QtVariantPropertyManager::initializeProperty(QtProperty *property)
{
    m_d->initialize(property);
}

void QtVariantPropertyManager::uninitializeProperty(QtProperty *property)
{
    m_d->uninitialize(property);
}

QtProperty *QtVariantPropertyManager::createProperty() { return new QtVariantProperty(this); }
