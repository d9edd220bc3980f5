#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QMap>
#include <QtCore/QPointer>
#include <QtWidgets/QUndoStack>
#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QMetaProperty;
QT_END_NAMESPACE

class QtAbstractPropertyBrowser;
class QtProperty;
class QtTreePropertyBrowser;
class QtVariantEditorFactory;
class QtVariantProperty;
class QtVariantPropertyManager;
class ZTAbstractPropertySetHelper;

/**
 * The property grid: every property of an object as a row, edited with undo.
 *
 * The rows come from the object's meta-object alone, base classes first. A row is named as its
 * property; `QtTreePropertyBrowser` shows the name in the application's language. Every edit is one
 * `ZTItemPropertyCommand` on the undo stack. Once a second the rows are brought up to date with the
 * object, which is how an undo or a drag shows; neither that nor filling the grid is an edit.
 *
 * "objectName" has no row, nor has a property of a type that the manager does not support. A record
 * shows as a group with a row for each field, made by the helper of its type; one without a helper
 * shows as an empty group.
 *
 * Frame: the row "pos" shows millimetres where the object holds scene pixels; no other top-level
 * row is converted.
 * Owner: the host. Object and undo stack are borrowed and may go at any time: the grid then empties
 * and disables itself, or loses edits as without a stack.
 * Order: GUI thread only.
 * Kept: nothing is retranslated by a change of language; show the object anew for that.
 */
class ZTDRAWENGINELIB_EXPORT ZTItemPropertyList : public QWidget
{
    Q_OBJECT

public:
    /** Called with the grid's browser, the edited property's name and its new value. */
    using DisableFunction = void (*)(QtAbstractPropertyBrowser *browser, const QString &name,
                                     const QVariant &value);

    /** An empty grid, enabled, with helpers for the library's four records. */
    explicit ZTItemPropertyList(QWidget *parent = nullptr);

    /**
     * Leaves the helpers that a host has registered alone: they are the host's again.
     *
     * Kept: only `removePropertySetHelper` deletes a helper of the host.
     */
    ~ZTItemPropertyList() override;

    QObject *getObject() const;       ///< the object shown, or null
    QUndoStack *getUndoStack() const; ///< where edits are recorded, or null; the host's
    QtVariantPropertyManager *getVariantManager() const; ///< makes the rows; the list's

    /**
     * Shows the properties of `shown` in place of those before, whose rows are deleted.
     *
     * Null empties and disables the grid. Does nothing for the object that is shown already.
     */
    virtual void setObject(QObject *shown);

    /**
     * Edits go to this stack from now on.
     *
     * Kept: without one an edit is lost, and the row shows the object's value again within a
     * second.
     */
    void setUndoStack(QUndoStack *stack);

    /**
     * Adds a row for a property of the object that is shown; does nothing without an object.
     *
     * Kept: the user type with the very first id, 1024, has no row at all, where others have an
     * empty group. In programs with widgets it is `QWidget *`.
     */
    void insertProperty(const QMetaProperty &property);

    /**
     * Registers the helper for a record's meta-type id; nothing happens if the id has one.
     *
     * Owner: the host, until it hands the helper to `removePropertySetHelper`.
     */
    void addPropertySetHelper(int metaTypeId, ZTAbstractPropertySetHelper *helper);
    ZTAbstractPropertySetHelper *getPropertySetHelper(int metaTypeId); ///< or null

    /** Deletes the helper of an id; nothing happens if the id has none. */
    void removePropertySetHelper(int metaTypeId);

    /**
     * Registers what greys rows when a property of `target` is edited; the first function of an
     * object is the one called.
     *
     * It is called before the edit is recorded, and when a refresh changes a top-level row. The
     * default, which each object gets as it is shown, enables the row "font" or "shxFont",
     * whichever the value of "fontType" uses, and disables the other.
     * Kept: an object keeps its function for good, and hands it down to one that is later created
     * at the same address; while the grid is filled none is called, so all rows start enabled.
     */
    void addDisableFunction(QObject *target, DisableFunction function);

    /**
     * Turns the edit of a row below a record into an edit of the record.
     *
     * In: `name` and `objectValue` are those of the row. Out: those of the top-level property.
     * Kept: a row below a record that bears the name of a property of the object counts as that
     * property.
     * Failure: false, with `name` as it was, if the edit is none of the object or changes nothing.
     */
    bool processParentProperty(const QMetaObject *meta, const QVariant &value,
                               QtVariantProperty *row, QString &name, QVariant &objectValue);

    /** Name of the property of `meta` that a row stands below as a field; empty if there is none.
     */
    static QString getParentPropertyName(QtVariantProperty *row, const QMetaObject *meta);

public Q_SLOTS:
    /** Records the edit of a row; nothing happens if the object holds that value already. */
    void slotValueChanged(QtProperty *property, const QVariant &value);

    /** Brings the rows up to date with the object; runs once a second by itself. */
    void updateProperty();

protected:
    /** Kept: swallows a change of language. */
    void changeEvent(QEvent *event) override;

private:
    class OwnHelpers;
    enum class Activity { Editing, Filling, Refreshing };

    template <class Record, class Helper>
    void registerRecord();
    QtVariantProperty *addRow(int type, const QMetaProperty &property);
    void insertFontType(const QMetaProperty &property);
    void clearRows();
    void refreshRow(QtVariantProperty *row);
    void callDisableFunction(const QString &name, const QVariant &objectValue);

    QPointer<QUndoStack> m_undoStack; ///< borrowed
    QPointer<QObject> m_object;       ///< borrowed
    QtVariantPropertyManager *const m_variantManager;
    QtVariantEditorFactory *const m_editorFactory;
    QtTreePropertyBrowser *const m_browser;
    OwnHelpers *const m_ownHelpers;                      ///< those that no host registered
    QMap<int, ZTAbstractPropertySetHelper *> m_helpers;  ///< by meta-type id; own and hosts'
    QMap<QObject *, DisableFunction> m_disableFunctions; ///< keys are only compared
    Activity m_activity = Activity::Editing;
    int m_fillCount = 0; ///< tells whether rows that were listed before are still those shown
};
