#include <QtPropertyBrowser/QtProperty.h>

#include <QtPropertyBrowser/QtAbstractPropertyManager.h>
#include <QtPropertyBrowser/QtProperty_p.h>

QtProperty::QtProperty(QtAbstractPropertyManager *manager) : d(new QtPropertyPrivate)
{
    d->manager = manager;
}

QtProperty::~QtProperty()
{
    const QList<QtProperty *> parents = d->parents;
    for (QtProperty *parent : parents)
        parent->removeSubProperty(this);
    if (d->manager)
        d->manager->forget(this);
    for (QtProperty *sub : qAsConst(d->subProperties))
        sub->d->parents.removeOne(this);
}

QList<QtProperty *> QtProperty::subProperties() const { return d->subProperties; }

QList<QtProperty *> QtProperty::parentProperty() const { return d->parents; }

QtAbstractPropertyManager *QtProperty::propertyManager() const { return d->manager; }

QString QtProperty::propertyName() const { return d->name; }

QString QtProperty::toolTip() const { return d->toolTip; }

QString QtProperty::statusTip() const { return d->statusTip; }

QString QtProperty::whatsThis() const { return d->whatsThis; }

bool QtProperty::isEnabled() const { return d->enabled; }

bool QtProperty::isModified() const { return d->modified; }

bool QtProperty::hasValue() const { return d->manager && d->manager->hasValue(this); }

QString QtProperty::valueText() const
{
    return d->manager ? d->manager->valueText(this) : QString();
}

QIcon QtProperty::valueIcon() const { return d->manager ? d->manager->valueIcon(this) : QIcon(); }

void QtProperty::setPropertyName(const QString &name) { setText(&d->name, name); }

void QtProperty::setToolTip(const QString &text) { setText(&d->toolTip, text); }

void QtProperty::setStatusTip(const QString &text) { setText(&d->statusTip, text); }

void QtProperty::setWhatsThis(const QString &text) { setText(&d->whatsThis, text); }

void QtProperty::setEnabled(bool enable)
{
    if (d->enabled == enable)
        return;
    d->enabled = enable;
    propertyChanged();
}

void QtProperty::setModified(bool modified)
{
    if (d->modified == modified)
        return;
    d->modified = modified;
    propertyChanged();
}

void QtProperty::addSubProperty(QtProperty *property)
{
    insertSubProperty(property, d->subProperties.isEmpty() ? nullptr : d->subProperties.last());
}

void QtProperty::insertSubProperty(QtProperty *property, QtProperty *after)
{
    if (!property || d->subProperties.contains(property) || property->holds(this))
        return;
    const int place = d->subProperties.lastIndexOf(after) + 1;
    QtProperty *preceding = place > 0 ? after : nullptr;
    d->subProperties.insert(place, property);
    property->d->parents.append(this);
    if (d->manager) {
        const OpenSignals open(d->manager);
        Q_EMIT d->manager->propertyInserted(property, this, preceding);
    }
}

void QtProperty::removeSubProperty(QtProperty *property)
{
    if (!property || !d->subProperties.contains(property))
        return;
    if (d->manager) {
        const OpenSignals open(d->manager);
        Q_EMIT d->manager->propertyRemoved(property, this);
    }
    d->subProperties.removeOne(property);
    property->d->parents.removeOne(this);
}

void QtProperty::propertyChanged()
{
    if (d->manager)
        Q_EMIT d->manager->propertyChanged(this);
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
    for (const QtProperty *sub : qAsConst(d->subProperties)) {
        if (sub->holds(other))
            return true;
    }
    return false;
}
