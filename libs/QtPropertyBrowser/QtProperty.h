#pragma once

#include <QtPropertyBrowser/QtPropertyBrowserGlobal.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtGui/QIcon>

#include <memory>

class QtAbstractPropertyManager;
class QtPropertyPrivate;

/**
 * A named row of a property grid, with the rows below it.
 *
 * The row knows its name and its place; what it holds is its manager's business. The same row may
 * stand under several parents and in several browsers at once.
 *
 * Owner: its manager, which deletes it at the latest in its own destructor. Anyone may delete a
 * row earlier; parents, browsers and open editors then forget it. With a row go the sub-rows that
 * its manager made as parts of its value; sub-rows that were added to it stay.
 */
class QTPROPERTYBROWSER_EXPORT QtProperty
{
public:
    virtual ~QtProperty();
    QtProperty(const QtProperty &) = delete;
    QtProperty &operator=(const QtProperty &) = delete;

    /** The rows directly below, in the order in which they show. */
    QList<QtProperty *> subProperties() const;

    /** The rows that hold this one directly, in the order in which they took it; empty on top. */
    QList<QtProperty *> parentProperty() const;

    QtAbstractPropertyManager *propertyManager() const; ///< who made the row and holds its value

    QString propertyName() const; ///< the key: never translated, unlike what a tree shows
    QString toolTip() const;      ///< shown under the mouse; empty at first
    QString statusTip() const;    ///< for a status bar; empty at first
    QString whatsThis() const;    ///< longer help; empty at first
    bool isEnabled() const;       ///< true at first; a row that is not enabled shows grey
    bool isModified() const;      ///< false at first; the name of a modified row shows bold

    bool hasValue() const;     ///< false for a row that only holds others
    QString valueText() const; ///< the value as a person reads it
    QIcon valueIcon() const;   ///< a small picture of the value, null if it has none

    /** Each of these tells browsers to show the row anew, if the text or state differs. */
    void setPropertyName(const QString &name);
    void setToolTip(const QString &text);
    void setStatusTip(const QString &text);
    void setWhatsThis(const QString &text);
    void setEnabled(bool enable);
    void setModified(bool modified);

    /** Puts `property` behind the last row below this one. Failure: as `insertSubProperty`. */
    void addSubProperty(QtProperty *property);

    /**
     * Puts `property` below this row, right behind `after`; null puts it first.
     *
     * Failure: nothing happens for null, for the row itself, for a row that is there already, and
     * for one that would come to stand below itself. An `after` that is not there counts as null.
     * Emits: `propertyInserted` of the manager of this row.
     */
    void insertSubProperty(QtProperty *property, QtProperty *after);

    /**
     * Takes `property` out from below this row and deletes nothing.
     *
     * Emits: `propertyRemoved` of the manager of this row, while the row is still in place.
     */
    void removeSubProperty(QtProperty *property);

protected:
    /** For managers: a row of `manager`, which must list it in its `addProperty`. */
    explicit QtProperty(QtAbstractPropertyManager *manager);

    /** Tells browsers that the row has to be shown anew. */
    void propertyChanged();

private:
    friend class QtAbstractPropertyManager;

    void setText(QString *field, const QString &text);
    bool holds(const QtProperty *other) const;

    const std::unique_ptr<QtPropertyPrivate> m_d;
};
