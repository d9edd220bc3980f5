#include <QtPropertyBrowser/QtProperty.h>

#include <QtPropertyBrowser/QtAbstractPropertyManager.h>
#include <QtPropertyBrowser/QtProperty_p.h>

QtProperty::QtProperty(QtAbstractPropertyManager *manager) : m_d(new QtPropertyPrivate)
{
    m_d->manager = manager;
}

QtProperty::~QtProperty()
{
    const QList<QtProperty *> parents = m_d->parents;
    for (QtProperty *parent : parents)
        parent->removeSubProperty(this);
    if (m_d->manager)
        m_d->manager->forget(this);
    for (QtProperty *sub : qAsConst(m_d->subProperties))
        sub->m_d->parents.removeOne(this);
}

QList<QtProperty *> QtProperty::subProperties() const { return m_d->subProperties; }

QList<QtProperty *> QtProperty::parentProperty() const { return m_d->parents; }

QtAbstractPropertyManager *QtProperty::propertyManager() const { return m_d->manager; }

QString QtProperty::propertyName() const { return m_d->name; }

QString QtProperty::toolTip() const { return m_d->toolTip; }

QString QtProperty::statusTip() const { return m_d->statusTip; }

QString QtProperty::whatsThis() const { return m_d->whatsThis; }

bool QtProperty::isEnabled() const { return m_d->enabled; }

bool QtProperty::isModified() const { return m_d->modified; }

bool QtProperty::hasValue() const { return m_d->manager && m_d->manager->hasValue(this); }

QString QtProperty::valueText() const
{
    return m_d->manager ? m_d->manager->valueText(this) : QString();
}

QIcon QtProperty::valueIcon() const
{
    return m_d->manager ? m_d->manager->valueIcon(this) : QIcon();
}

void QtProperty::setPropertyName(const QString &name) { setText(&m_d->name, name); }

void QtProperty::setToolTip(const QString &text) { setText(&m_d->toolTip, text); }

void QtProperty::setStatusTip(const QString &text) { setText(&m_d->statusTip, text); }

void QtProperty::setWhatsThis(const QString &text) { setText(&m_d->whatsThis, text); }

void QtProperty::setEnabled(bool enable)
{
    if (m_d->enabled == enable)
        return;
    m_d->enabled = enable;
    propertyChanged();
}

void QtProperty::setModified(bool modified)
{
    if (m_d->modified == modified)
        return;
    m_d->modified = modified;
    propertyChanged();
}

void QtProperty::addSubProperty(QtProperty *property)
{
    insertSubProperty(property, m_d->subProperties.isEmpty() ? nullptr : m_d->subProperties.last());
}

void QtProperty::insertSubProperty(QtProperty *property, QtProperty *after)
{
    if (!property || m_d->subProperties.contains(property) || property->holds(this))
        return;
    const int place = m_d->subProperties.lastIndexOf(after) + 1;
    QtProperty *preceding = place > 0 ? after : nullptr;
    m_d->subProperties.insert(place, property);
    property->m_d->parents.append(this);
    if (m_d->manager) {
        const OpenSignals open(m_d->manager);
        Q_EMIT m_d->manager->propertyInserted(property, this, preceding);
    }
}

void QtProperty::removeSubProperty(QtProperty *property)
{
    if (!property || !m_d->subProperties.contains(property))
        return;
    if (m_d->manager) {
        const OpenSignals open(m_d->manager);
        Q_EMIT m_d->manager->propertyRemoved(property, this);
    }
    m_d->subProperties.removeOne(property);
    property->m_d->parents.removeOne(this);
}

void QtProperty::propertyChanged()
{
    if (m_d->manager)
        Q_EMIT m_d->manager->propertyChanged(this);
}

void QtProperty::setText(QString *field, const QString &text)
{
    if (*field == text)
        return;
    *field = text;
    propertyChanged();
}

/** Whether `other` is this row or stands below it at any depth. */
bool QtProperty::holds(const QtProperty *other) const
{
    if (other == this)
        return true;
    for (const QtProperty *sub : qAsConst(m_d->subProperties)) {
        if (sub->holds(other))
            return true;
    }
    return false;
}
