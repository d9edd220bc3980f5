#pragma once

#include <QtPropertyBrowser/QtAbstractEditorFactory.h>
#include <QtPropertyBrowser/QtBrowserItem.h>

#include <QtWidgets/QWidget>

class QtAbstractPropertyBrowserPrivate;

/**
 * Shows rows and keeps in step with them; how they look is for the derived class to say.
 *
 * Rows that are added to or taken from a shown row appear and vanish at once, at any depth.
 *
 * Owner: rows, managers and factories belong to others, and any of them may go first.
 */
class QTPROPERTYBROWSER_EXPORT QtAbstractPropertyBrowser : public QWidget
{
    Q_OBJECT

public:
    explicit QtAbstractPropertyBrowser(QWidget *parent = nullptr);
    ~QtAbstractPropertyBrowser() override;

    QList<QtProperty *> properties() const;                   ///< the top rows, in order
    QList<QtBrowserItem *> topLevelItems() const;             ///< their items, in order
    QList<QtBrowserItem *> items(QtProperty *property) const; ///< every place of a row
    QtBrowserItem *topLevelItem(QtProperty *property) const;  ///< null if it is not on top
    QtBrowserItem *currentItem() const;                       ///< null if there is none

    /** Emits: `currentItemChanged`, if it is another one. An item of another browser is refused. */
    void setCurrentItem(QtBrowserItem *item);

    /** Takes every row out and deletes none. */
    void clear();

    /** Edits the rows of `manager` with widgets from `factory`, in place of those before. */
    template <class PropertyManager>
    void setFactoryForManager(PropertyManager *manager,
                              QtAbstractEditorFactory<PropertyManager> *factory)
    {
        if (!manager || !factory)
            return;
        factory->addPropertyManager(manager);
        setFactory(manager, factory);
    }

    /** The rows of `manager` are no longer edited here. */
    void unsetFactoryForManager(QtAbstractPropertyManager *manager);

public Q_SLOTS:
    /** Puts a row behind the last. Failure: null for null and for a row that is on top already. */
    QtBrowserItem *addProperty(QtProperty *property);

    /** Puts a row right behind `after`, or first for null. Failure: as `addProperty`. */
    QtBrowserItem *insertProperty(QtProperty *property, QtProperty *after);

    /** Takes a top row out and deletes nothing. */
    void removeProperty(QtProperty *property);

Q_SIGNALS:
    void currentItemChanged(QtBrowserItem *item); ///< null when there is none any more

protected:
    /** An item now stands behind `after`, or first for null. Its children follow one by one. */
    virtual void itemInserted(QtBrowserItem *item, QtBrowserItem *after) = 0;

    /** An item is about to go; its children have gone before it. */
    virtual void itemRemoved(QtBrowserItem *item) = 0;

    /** Name, state or value of an item's row have to be shown anew. */
    virtual void itemChanged(QtBrowserItem *item) = 0;

    /** An editor for a row, from the factory of its manager; null if there is none. */
    virtual QWidget *createEditor(QtProperty *property, QWidget *parent);

private:
    friend class QtAbstractPropertyBrowserPrivate;

    void setFactory(QtAbstractPropertyManager *manager, QtAbstractEditorFactoryBase *factory);

    const std::unique_ptr<QtAbstractPropertyBrowserPrivate> m_d;
};
