#pragma once

#include <QtPropertyBrowser/QtAbstractPropertyManager.h>
#include <QtPropertyBrowser/QtVariantProperty.h>

#include <QtCore/QStringList>
#include <QtCore/QVariant>

class QtVariantPropertyManagerPrivate;

/**
 * Makes rows for the value types of Qt and keeps their values within their bounds.
 *
 * Supported are `bool`, `int`, `double`, `QString`, `QChar`, `QDate`, `QTime`, `QDateTime`,
 * `QKeySequence`, `QColor`, `QFont`, `QCursor`, `QLocale`, `QPoint`, `QPointF`, `QSize`, `QSizeF`,
 * `QRect`, `QRectF` and `QSizePolicy`, each under its meta-type id, and lists, flags and groups
 * under the ids of the static functions. A value of several parts gets a sub-row for each part.
 *
 * One edit tells each row that it changed exactly once: parts before the whole, and only when all
 * of them agree. A slot may edit or delete any row, also the one that it is told about.
 */
class QTPROPERTYBROWSER_EXPORT QtVariantPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT

public:
    explicit QtVariantPropertyManager(QObject *parent = nullptr);
    ~QtVariantPropertyManager() override;

    /** A new row of a type; null, without a message, if the type is not supported. */
    virtual QtVariantProperty *addProperty(int propertyType, const QString &name = QString());

    int propertyType(const QtProperty *property) const; ///< 0 for a row of another manager
    int valueType(const QtProperty *property) const;    ///< meta-type id of the value, or 0
    QtVariantProperty *variantProperty(const QtProperty *property) const; ///< or null

    /** Whether rows of it can be made. */
    virtual bool isPropertyTypeSupported(int propertyType) const;
    virtual int valueType(int propertyType) const;          ///< 0 for groups and unsupported types
    virtual QStringList attributes(int propertyType) const; ///< names; empty for unsupported types
    virtual int attributeType(int propertyType, const QString &attribute) const; ///< or 0

    /** Invalid for a row of another manager. */
    virtual QVariant value(const QtProperty *property) const;
    /** Invalid for a row of another manager or without that attribute. */
    virtual QVariant attributeValue(const QtProperty *property, const QString &attribute) const;

    static int enumTypeId();    ///< an `int` that is an index into the attribute "enumNames"
    static int flagTypeId();    ///< an `int` whose bits the attribute "flagNames" names
    static int groupTypeId();   ///< a row without a value, for rows below it
    static int iconMapTypeId(); ///< type of the attribute "enumIcons": `QMap<int, QIcon>`

public Q_SLOTS:
    /**
     * Gives a row a value, converted to its type and brought into its bounds.
     *
     * Doubles are compared exactly and never rounded: "decimals" rules text and editor only.
     * Failure: nothing happens for a row of another manager, a group, a value that does not
     * convert, one that is no number or no date, a text that "regExp" does not match, and a
     * negative index while the row has names. An index past the last name is stored and shows no
     * text.
     * Emits: if the value differs, `propertyChanged` and `valueChanged` for every sub-row that
     * changed, then for the row, then for the row that it is a part of.
     */
    virtual void setValue(QtProperty *property, const QVariant &value);

    /**
     * Gives a row an attribute, for example "minimum".
     *
     * A value outside new bounds moves into them. A minimum above the maximum takes it along, and
     * the other way round. New "enumNames" put the row on the first, or on -1 if there is none;
     * new "flagNames" put it on 0 and give it new sub-rows.
     * Failure: nothing happens for an attribute that the row does not have.
     * Emits: `attributeChanged` for each attribute that changed, `propertyChanged`, and
     * `valueChanged` where a value changed; new names emit it in any case.
     */
    virtual void setAttribute(QtProperty *property, const QString &attribute,
                              const QVariant &value);

Q_SIGNALS:
    /** The row now holds this value, of its value type and within its bounds. */
    void valueChanged(QtProperty *property, const QVariant &value);
    void attributeChanged(QtProperty *property, const QString &attribute, const QVariant &value);

protected:
    bool hasValue(const QtProperty *property) const override;
    QIcon valueIcon(const QtProperty *property) const override;
    QString valueText(const QtProperty *property) const override;
    void initializeProperty(QtProperty *property) override;
    void uninitializeProperty(QtProperty *property) override;
    QtProperty *createProperty() override;

private:
    friend class QtVariantPropertyManagerPrivate;

    const std::unique_ptr<QtVariantPropertyManagerPrivate> m_d;
};
