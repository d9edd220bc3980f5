#pragma once

#include <QtCore/QLocale>
#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <QtGui/QIcon>

#include <memory>
#include <vector>

/** What the rows of each type are: values, attributes, parts and texts, apart from any row. */
namespace rowtypes {

struct AttributeSpec
{
    QString name;
    int type;
    QVariant initial;
};

/** A part of a value that has a sub-row of its own. */
struct FieldSpec
{
    QString name;
    int propertyType;
    QVariantMap attributes; ///< those that differ from the type's own
};

/** The rules of one row type. Holds nothing of a row: every call is given what it needs. */
class RowType
{
public:
    RowType(int propertyType, int valueType) : m_ownType(propertyType), m_heldType(valueType) {}
    virtual ~RowType() = default;
    RowType(const RowType &) = delete;
    RowType &operator=(const RowType &) = delete;

    int propertyType() const { return m_ownType; }
    int valueType() const { return m_heldType; }

    virtual QVariant initialValue() const = 0;
    virtual QVector<AttributeSpec> attributes() const { return {}; }

    /** Whether a row takes a value at all, once it is of the value type. */
    virtual bool accepts(const QVariant &value, const QVariantMap &attributes) const;

    /** The value that comes closest within the attributes' bounds. */
    virtual QVariant bounded(const QVariant &value, const QVariantMap &attributes) const;

    /** Equality to the last bit, where `QVariant` would compare roughly. */
    virtual bool same(const QVariant &left, const QVariant &right) const { return left == right; }

    /** The value if an attribute's setting takes it, converted to the attribute's type. */
    virtual QVariant convertedAttribute(const AttributeSpec &spec, const QVariant &value) const;

    /** Stores an attribute, and what has to move along with it. */
    virtual void setAttribute(QVariantMap *attributes, const QString &name,
                              const QVariant &value) const;

    /** The value that a new setting of this attribute puts the row to; invalid if it stays. */
    virtual QVariant valueAfter(const QString &attribute, const QVariantMap &attributes) const;

    virtual QString text(const QVariant &value, const QVariantMap &attributes) const = 0;
    virtual QIcon icon(const QVariant &value, const QVariantMap &attributes) const;

    virtual QVector<FieldSpec> fields(const QVariant &value, const QVariantMap &attributes) const;
    /** Whether the value itself says what its fields are, and not the attributes alone. */
    virtual bool fieldsFollowValue() const { return false; }
    virtual QVariant fieldValue(const QVariant &value, int field) const;
    /** The whole after an edit of one part; everything else of it stays. */
    virtual QVariant withField(const QVariant &value, int field, const QVariant &part) const;

private:
    const int m_ownType;
    const int m_heldType;
};

using RowTypes = std::vector<std::unique_ptr<RowType>>;

/** The rules for a property type; null if it is not supported. */
const RowType *rowType(int propertyType);

void addBoolType(RowTypes *types);
void addColorType(RowTypes *types);
void addCursorType(RowTypes *types);
void addDateTimeTypes(RowTypes *types);
void addFontType(RowTypes *types);
void addLocaleType(RowTypes *types);
void addNameTypes(RowTypes *types);
void addNumberTypes(RowTypes *types);
void addPointTypes(RowTypes *types);
void addRectTypes(RowTypes *types);
void addSizePolicyType(RowTypes *types);
void addSizeTypes(RowTypes *types);
void addTextTypes(RowTypes *types);

} // namespace rowtypes
