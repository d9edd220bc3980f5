#pragma once

#include <QtPropertyBrowser/QtProperty.h>

#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtGui/QIcon>

#include <memory>

class QtAbstractPropertyManagerPrivate;

/**
 * Makes rows, holds what they contain and says how it reads.
 *
 * A class for a value of one's own needs `initializeProperty`, and to show something `valueText`.
 *
 * A program that blocks the manager's signals silences `propertyChanged` and with it the browsers'
 * texts. What tells of rows that come and go gets through all the same.
 *
 * Owner: of all its rows. A class that overrides `uninitializeProperty` calls `clear` in its own
 * destructor: later its override is no longer reached.
 */
class QTPROPERTYBROWSER_EXPORT QtAbstractPropertyManager : public QObject
{
    Q_OBJECT

public:
    explicit QtAbstractPropertyManager(QObject *parent = nullptr);
    ~QtAbstractPropertyManager() override;

    QSet<QtProperty *> properties() const; ///< every living row, sub-rows too

    /** Deletes every row, and with it its place in parents, browsers and editors. */
    void clear() const;

    /** A new row with this name; null if `createProperty` gives none of this manager. */
    QtProperty *addProperty(const QString &name = QString());

Q_SIGNALS:
    /** `newProperty` now stands below `parent`, behind `preceding`, or first if that is null. */
    void propertyInserted(QtProperty *newProperty, QtProperty *parent, QtProperty *preceding);
    /** Name, state or value of the row have to be shown anew. */
    void propertyChanged(QtProperty *property);
    /** The row is about to leave its place below `parent`. */
    void propertyRemoved(QtProperty *property, QtProperty *parent);
    /** The row is being deleted: only its address serves any more. */
    void propertyDestroyed(QtProperty *property);

protected:
    virtual bool hasValue(const QtProperty *property) const;
    virtual QIcon valueIcon(const QtProperty *property) const;
    virtual QString valueText(const QtProperty *property) const;

    /** Called once for each new row; gives it its first value. */
    virtual void initializeProperty(QtProperty *property) = 0;

    /** Called once for each row that is being deleted. */
    virtual void uninitializeProperty(QtProperty *property);

    /** A new row of this manager, for `addProperty`; for rows of a class of one's own. */
    virtual QtProperty *createProperty();

private:
    friend class QtProperty;

    void forget(QtProperty *property);

    const std::unique_ptr<QtAbstractPropertyManagerPrivate> m_d;
};
