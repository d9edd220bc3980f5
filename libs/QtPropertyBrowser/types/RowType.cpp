#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QHash>

namespace rowtypes {

namespace {

RowTypes allTypes()
{
    RowTypes types;
    for (const auto add : {addBoolType, addColorType, addCursorType, addDateTimeTypes, addFontType,
                           addLocaleType, addNameTypes, addNumberTypes, addPointTypes, addRectTypes,
                           addSizePolicyType, addSizeTypes, addTextTypes})
        add(&types);
    return types;
}

QHash<int, const RowType *> byPropertyType(const RowTypes &types)
{
    QHash<int, const RowType *> table;
    for (const auto &type : types)
        table.insert(type->propertyType(), type.get());
    return table;
}

} // namespace

bool RowType::accepts(const QVariant &value, const QVariantMap &attributes) const
{
    Q_UNUSED(value)
    Q_UNUSED(attributes)
    return true;
}

QVariant RowType::bounded(const QVariant &value, const QVariantMap &attributes) const
{
    Q_UNUSED(attributes)
    return value;
}

QVariant RowType::convertedAttribute(const AttributeSpec &spec, const QVariant &value) const
{
    QVariant converted = value;
    if (value.userType() != spec.type &&
        (!value.canConvert(spec.type) || !converted.convert(spec.type)))
        return {};
    return converted;
}

void RowType::setAttribute(QVariantMap *attributes, const QString &name,
                           const QVariant &value) const
{
    attributes->insert(name, value);
}

QVariant RowType::valueAfter(const QString &attribute, const QVariantMap &attributes) const
{
    Q_UNUSED(attribute)
    Q_UNUSED(attributes)
    return {};
}

QIcon RowType::icon(const QVariant &value, const QVariantMap &attributes) const
{
    Q_UNUSED(value)
    Q_UNUSED(attributes)
    return {};
}

QVector<FieldSpec> RowType::fields(const QVariant &value, const QVariantMap &attributes) const
{
    Q_UNUSED(value)
    Q_UNUSED(attributes)
    return {};
}

QVariant RowType::fieldValue(const QVariant &value, int field) const
{
    Q_UNUSED(value)
    Q_UNUSED(field)
    return {};
}

QVariant RowType::withField(const QVariant &value, int field, const QVariant &part) const
{
    Q_UNUSED(field)
    Q_UNUSED(part)
    return value;
}

const RowType *rowType(int propertyType)
{
    static const RowTypes types = allTypes();
    static const QHash<int, const RowType *> table = byPropertyType(types);
    return table.value(propertyType);
}

} // namespace rowtypes
