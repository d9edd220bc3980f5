#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QVariant>

QT_BEGIN_NAMESPACE
class QMetaProperty;
class QObject;
class QString;
QT_END_NAMESPACE

class QtVariantProperty;
class QtVariantPropertyManager;

/**
 * Shows a record as a group row with a sub-row for each field, and makes records of what is edited
 * there.
 *
 * A host derives from it for record types of its own and registers the helper with
 * `ZTItemPropertyList::addPropertySetHelper` under the record's meta-type id. The record needs
 * `operator==`, registered with `QMetaType::registerEqualsComparator`: otherwise a `QVariant`
 * compares it byte by byte.
 *
 * Order: called by `ZTItemPropertyList` alone. Every edit starts from the object's present record,
 * so a helper keeps nothing between calls.
 * Failure: a sub-row that the manager refuses is left out; no other sub-row depends on it.
 */
class ZTDRAWENGINELIB_EXPORT ZTAbstractPropertySetHelper
{
public:
    /** A helper whose sub-rows `rowManager` makes; the manager stays its owner's. */
    explicit ZTAbstractPropertySetHelper(QtVariantPropertyManager *rowManager);
    virtual ~ZTAbstractPropertySetHelper();
    ZTAbstractPropertySetHelper(const ZTAbstractPropertySetHelper &) = delete;
    ZTAbstractPropertySetHelper &operator=(const ZTAbstractPropertySetHelper &) = delete;

    /** Makes the sub-rows below `parent` and fills them from the object's record. */
    virtual void addProperty(const QObject *object, const QMetaProperty &property,
                             QtVariantProperty *parent) = 0;

    /**
     * The record that the object would hold after an edit of sub-row `name` to `value`.
     *
     * Writes nothing. Failure: invalid if the edit changes nothing.
     */
    virtual QVariant valueChanged(const QObject *object, const QMetaProperty &property,
                                  const QString &name, const QVariant &value) = 0;

    /** Brings the sub-rows up to date with a record. */
    virtual void setValue(QtVariantProperty *parent, const QVariant &value) = 0;

    /** The record that the sub-rows show; a field without a sub-row has its default. */
    virtual QVariant getValue(QtVariantProperty *parent) = 0;

protected:
    QtVariantPropertyManager *const manager; ///< borrowed from the constructor's caller
};
