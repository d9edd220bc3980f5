#pragma once

#include <QtPropertyBrowser/QtAbstractPropertyManager.h>
#include <QtPropertyBrowser/QtProperty.h>

#include <QtCore/QSet>
#include <QtWidgets/QWidget>

/** Makes the widgets in which rows are edited, whatever their manager. */
class QTPROPERTYBROWSER_EXPORT QtAbstractEditorFactoryBase : public QObject
{
    Q_OBJECT

public:
    /** A new editor below `parent`, which owns it; null if the row has none. */
    virtual QWidget *createEditor(QtProperty *property, QWidget *parent) = 0;

protected:
    explicit QtAbstractEditorFactoryBase(QObject *parent = nullptr);
};

/**
 * Makes the editors for the rows of managers of one class.
 *
 * Owner: factories and managers belong to whoever made them; either may go first.
 */
template <class PropertyManager>
class QtAbstractEditorFactory : public QtAbstractEditorFactoryBase
{
public:
    explicit QtAbstractEditorFactory(QObject *parent = nullptr)
        : QtAbstractEditorFactoryBase(parent)
    {
    }

    /** An editor for a row of one of the factory's managers; null for any other row. */
    QWidget *createEditor(QtProperty *property, QWidget *parent) override
    {
        for (PropertyManager *manager : qAsConst(m_managers)) {
            if (property && manager == property->propertyManager())
                return createEditor(manager, property, parent);
        }
        return nullptr;
    }

    /** Serves the rows of `manager` from now on. Null or a known manager changes nothing. */
    void addPropertyManager(PropertyManager *manager)
    {
        if (!manager || m_managers.contains(manager))
            return;
        m_managers.insert(manager);
        connectPropertyManager(manager);
        connect(manager, &QObject::destroyed, this,
                [this, manager] { m_managers.remove(manager); });
    }

    /** No longer serves the rows of `manager`; editors that are open stay in step with them. */
    void removePropertyManager(PropertyManager *manager)
    {
        if (!m_managers.remove(manager))
            return;
        disconnect(manager, &QObject::destroyed, this, nullptr);
        disconnectPropertyManager(manager);
    }

    QSet<PropertyManager *> propertyManagers() const { return m_managers; }

protected:
    virtual QWidget *createEditor(PropertyManager *manager, QtProperty *property,
                                  QWidget *parent) = 0;

    /** For a factory that has to know more of its managers than their rows. */
    virtual void connectPropertyManager(PropertyManager *manager) { Q_UNUSED(manager) }
    virtual void disconnectPropertyManager(PropertyManager *manager) { Q_UNUSED(manager) }

private:
    QSet<PropertyManager *> m_managers;
};
