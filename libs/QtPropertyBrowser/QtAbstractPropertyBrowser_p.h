#pragma once

#include <QtPropertyBrowser/QtAbstractPropertyBrowser.h>

#include <QtCore/QHash>
#include <QtCore/QPointer>

#include <memory>
#include <unordered_map>

class QtBrowserItemPrivate
{
public:
    QtAbstractPropertyBrowser *browser; ///< owns the item
    QtProperty *property;               ///< borrowed; the item goes before it
    QtBrowserItem *parent;
    QList<QtBrowserItem *> children;
};

/** The items of a browser, and the managers that it listens to for as long as it shows rows. */
class QtAbstractPropertyBrowserPrivate
{
public:
    explicit QtAbstractPropertyBrowserPrivate(QtAbstractPropertyBrowser *browser) : q(browser) {}
    ~QtAbstractPropertyBrowserPrivate();

    QtBrowserItem *insert(QtProperty *property, QtBrowserItem *parent, QtBrowserItem *after);
    void remove(QtBrowserItem *item);
    void setFactory(QtAbstractPropertyManager *manager, QtAbstractEditorFactoryBase *factory);

    QtAbstractPropertyBrowser *const q;
    QList<QtBrowserItem *> top;
    QHash<const QtProperty *, QList<QtBrowserItem *>> places;
    QHash<QtAbstractPropertyManager *, QPointer<QtAbstractEditorFactoryBase>> factories;
    QtBrowserItem *current = nullptr;
    QObject factoryContext; ///< what the factories' managers tell, they tell it

private:
    QList<QtBrowserItem *> &siblings(QtBrowserItem *parent);
    void removeBranch(QtBrowserItem *item);
    void listen(QtAbstractPropertyManager *manager);
    void unlisten(QtAbstractPropertyManager *manager);
    void propertyInserted(QtProperty *property, QtProperty *parent, QtProperty *preceding);
    void propertyRemoved(QtProperty *property, QtProperty *parent);
    void propertyDestroyed(QtProperty *property);
    void propertyChanged(QtProperty *property);
    void deleteQuietly(const QList<QtBrowserItem *> &items);

    /** Ties the browser to a manager; without it nothing arrives any more. */
    struct Link
    {
        QObject context;
        int items = 0; ///< that the manager's rows have here
    };

    std::unordered_map<QtAbstractPropertyManager *, std::unique_ptr<Link>> m_links;
};
