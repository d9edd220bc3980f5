#include <ZTDrawEngineLib/properties/RecordRows_p.h>

namespace recordrows {

QtVariantProperty *addRow(QtVariantPropertyManager *manager, int type, const QString &name,
                          QtVariantProperty *parent)
{
    QtVariantProperty *row = manager->addProperty(type, name);
    if (row)
        parent->addSubProperty(row);
    return row;
}

QtVariantProperty *addRow(QtVariantPropertyManager *manager, int type, const QString &name,
                          const QVariant &value, QtVariantProperty *parent)
{
    QtVariantProperty *row = addRow(manager, type, name, parent);
    if (row)
        row->setValue(value);
    return row;
}

QtVariantProperty *addChoice(QtVariantPropertyManager *manager, const QString &name,
                             const QStringList &choices, const QVariant &value,
                             QtVariantProperty *parent)
{
    QtVariantProperty *row = addRow(manager, QtVariantPropertyManager::enumTypeId(), name, parent);
    if (row) {
        row->setAttribute(QStringLiteral("enumNames"), choices);
        row->setValue(value);
    }
    return row;
}

void refresh(QtVariantProperty *row, const QVariant &value)
{
    if (row->value() != value)
        row->setValue(value);
}

} // namespace recordrows
