#pragma once

#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <QtCore/QMetaProperty>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariant>

/** What the helpers of all records do with their sub-rows. */
namespace recordrows {

/** A sub-row at the end of `parent`; null, and nothing added, if the manager refuses the type. */
QtVariantProperty *addRow(QtVariantPropertyManager *manager, int type, const QString &name,
                          QtVariantProperty *parent);

/** As above, with a first value. */
QtVariantProperty *addRow(QtVariantPropertyManager *manager, int type, const QString &name,
                          const QVariant &value, QtVariantProperty *parent);

/** A sub-row for a choice among names. */
QtVariantProperty *addChoice(QtVariantPropertyManager *manager, const QString &name,
                             const QStringList &choices, const QVariant &value,
                             QtVariantProperty *parent);

/** Sets a row that shows something else; a row that shows the value stays untouched. */
void refresh(QtVariantProperty *row, const QVariant &value);

/** Calls `visit(row, name)` for each sub-row that holds a variant. */
template <class Visitor>
void forEach(const QtVariantProperty *parent, Visitor visit)
{
    if (!parent)
        return;
    const QList<QtProperty *> subProperties = parent->subProperties();
    for (QtProperty *property : subProperties) {
        if (auto *row = dynamic_cast<QtVariantProperty *>(property))
            visit(row, row->propertyName());
    }
}

/** The record that the object holds under a property at this moment. */
template <class Record>
Record heldBy(const QObject *object, const QMetaProperty &property)
{
    return object ? object->property(property.name()).template value<Record>() : Record();
}

/** The edited record, or nothing if it equals the one before. */
template <class Record>
QVariant changed(const Record &before, const Record &edited)
{
    return edited == before ? QVariant() : QVariant::fromValue(edited);
}

} // namespace recordrows
