#include <QtPropertyBrowser/QtAbstractPropertyManager.h>

#include <QtPropertyBrowser/QtProperty.h>
#include <QtPropertyBrowser/QtProperty_p.h>

class QtAbstractPropertyManagerPrivate
{
public:
    QSet<QtProperty *> properties;
};

QtAbstractPropertyManager::QtAbstractPropertyManager(QObject *parent)
    : QObject(parent), m_d(new QtAbstractPropertyManagerPrivate)
{
    // By name, which leaves a program free to declare the type itself.
    qRegisterMetaType<QtProperty *>("QtProperty*");
}

QtAbstractPropertyManager::~QtAbstractPropertyManager() { clear(); }

QSet<QtProperty *> QtAbstractPropertyManager::properties() const { return m_d->properties; }

void QtAbstractPropertyManager::clear() const
{
    // A row may take others along as it goes, so a copy of the set would not do.
    while (!m_d->properties.isEmpty())
        delete *m_d->properties.constBegin();
}

QtProperty *QtAbstractPropertyManager::addProperty(const QString &name)
{
    QtProperty *property = createProperty();
    // A row of another manager would never leave this one's list.
    if (!property || property->propertyManager() != this) {
        delete property;
        return nullptr;
    }
    property->m_d->name = name;
    m_d->properties.insert(property);
    initializeProperty(property);
    return property;
}

bool QtAbstractPropertyManager::hasValue(const QtProperty *property) const
{
    Q_UNUSED(property)
    return true;
}

QIcon QtAbstractPropertyManager::valueIcon(const QtProperty *property) const
{
    Q_UNUSED(property)
    return {};
}

QString QtAbstractPropertyManager::valueText(const QtProperty *property) const
{
    Q_UNUSED(property)
    return {};
}

void QtAbstractPropertyManager::uninitializeProperty(QtProperty *property){Q_UNUSED(property)}

QtProperty *QtAbstractPropertyManager::createProperty()
{
    return new QtProperty(this);
}

void QtAbstractPropertyManager::forget(QtProperty *property)
{
    if (!m_d->properties.contains(property))
        return;
    {
        const OpenSignals open(this);
        Q_EMIT propertyDestroyed(property);
    }
    uninitializeProperty(property);
    m_d->properties.remove(property);
}
