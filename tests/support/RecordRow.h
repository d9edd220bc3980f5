#pragma once

#include <QtPropertyBrowser/QtVariantProperty.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <ZTDrawEngineLib/properties/ZTAbstractPropertySetHelper.h>

#include <QtCore/QMetaProperty>
#include <QtCore/QStringList>

namespace testsupport {

/** A group row of a record of an object, filled by a helper, outside any grid. */
class RecordRow
{
public:
    RecordRow(const QObject *shown, const char *propertyName)
        : object(shown), property(shown->metaObject()->property(
                             shown->metaObject()->indexOfProperty(propertyName)))
    {
    }

    /** Makes the sub-rows. */
    void fill(ZTAbstractPropertySetHelper *rowHelper, QtVariantPropertyManager *manager)
    {
        helper = rowHelper;
        group = manager->addProperty(QtVariantPropertyManager::groupTypeId(),
                                     QString::fromLatin1(property.name()));
        helper->addProperty(object, property, group);
    }

    QStringList names() const
    {
        QStringList all;
        const QList<QtProperty *> rows = group->subProperties();
        for (const QtProperty *row : rows)
            all.append(row->propertyName());
        return all;
    }

    QtVariantProperty *sub(const char *name) const
    {
        const QList<QtProperty *> rows = group->subProperties();
        for (QtProperty *row : rows) {
            if (row->propertyName() == QLatin1String(name))
                return dynamic_cast<QtVariantProperty *>(row);
        }
        return nullptr;
    }

    QVariant edited(const char *name, const QVariant &value) const
    {
        return helper->valueChanged(object, property, QString::fromLatin1(name), value);
    }

    /** Brings the sub-rows up to date with the object. */
    void refresh() const { helper->setValue(group, property.read(object)); }

    const QObject *object;
    QMetaProperty property;
    ZTAbstractPropertySetHelper *helper = nullptr;
    QtVariantProperty *group = nullptr;
};

/** A manager that makes no rows of one type. */
class RefusingManager : public QtVariantPropertyManager
{
public:
    explicit RefusingManager(int refusedType) : refused(refusedType) {}

    bool isPropertyTypeSupported(int type) const override
    {
        return type != refused && QtVariantPropertyManager::isPropertyTypeSupported(type);
    }

private:
    int refused;
};

} // namespace testsupport
