#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QMap>

namespace rowtypes {

namespace {

/** Limit: bits of an `int` that can have a name; further names get no row. */
constexpr int kMaxFlags = 32;

class EnumType : public RowType
{
public:
    EnumType() : RowType(QtVariantPropertyManager::enumTypeId(), QMetaType::Int) {}

    QVariant initialValue() const override { return -1; }

    QVector<AttributeSpec> attributes() const override
    {
        return {{enumNamesName(), QMetaType::QStringList, QStringList()},
                {enumIconsName(), QtVariantPropertyManager::iconMapTypeId(),
                 QVariant::fromValue(QMap<int, QIcon>())}};
    }

    // Kept: an index past the last name is stored, so that a choice that is in no list can be
    // told from the first entry; it shows no text.
    bool accepts(const QVariant &value, const QVariantMap &attributes) const override
    {
        return value.toInt() >= 0 || attributes.value(enumNamesName()).toStringList().isEmpty();
    }

    QVariant valueAfter(const QString &attribute, const QVariantMap &attributes) const override
    {
        if (attribute != enumNamesName())
            return {};
        return attributes.value(enumNamesName()).toStringList().isEmpty() ? -1 : 0;
    }

    QString text(const QVariant &value, const QVariantMap &attributes) const override
    {
        return attributes.value(enumNamesName()).toStringList().value(value.toInt());
    }

    QIcon icon(const QVariant &value, const QVariantMap &attributes) const override
    {
        return attributes.value(enumIconsName()).value<QMap<int, QIcon>>().value(value.toInt());
    }
};

class FlagType : public RowType
{
public:
    FlagType() : RowType(QtVariantPropertyManager::flagTypeId(), QMetaType::Int) {}

    QVariant initialValue() const override { return 0; }

    QVector<AttributeSpec> attributes() const override
    {
        return {{flagNamesName(), QMetaType::QStringList, QStringList()}};
    }

    QVariant bounded(const QVariant &value, const QVariantMap &attributes) const override
    {
        const int count = qMin(names(attributes).size(), kMaxFlags);
        const quint32 named = count == kMaxFlags ? ~0u : (1u << count) - 1u;
        return int(bits(value) & named);
    }

    QVariant valueAfter(const QString &attribute, const QVariantMap &) const override
    {
        return attribute == flagNamesName() ? QVariant(0) : QVariant();
    }

    QString text(const QVariant &value, const QVariantMap &attributes) const override
    {
        const QStringList all = names(attributes);
        QStringList set;
        for (int i = 0; i < qMin(all.size(), kMaxFlags); ++i) {
            if (bits(value) & (1u << i))
                set.append(all.at(i));
        }
        return set.join(QLatin1Char('|'));
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &attributes) const override
    {
        QVector<FieldSpec> specs;
        const QStringList all = names(attributes).mid(0, kMaxFlags);
        for (const QString &name : all)
            specs.append({name, QMetaType::Bool, {}});
        return specs;
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        return (bits(value) & (1u << field)) != 0;
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        const quint32 bit = 1u << field;
        return int(part.toBool() ? bits(value) | bit : bits(value) & ~bit);
    }

private:
    static QStringList names(const QVariantMap &attributes)
    {
        return attributes.value(flagNamesName()).toStringList();
    }

    static quint32 bits(const QVariant &value) { return quint32(value.toInt()); }
};

class GroupType : public RowType
{
public:
    GroupType() : RowType(QtVariantPropertyManager::groupTypeId(), QMetaType::UnknownType) {}

    QVariant initialValue() const override { return {}; }
    QString text(const QVariant &, const QVariantMap &) const override { return {}; }
};

} // namespace

void addNameTypes(RowTypes *types)
{
    types->push_back(std::make_unique<EnumType>());
    types->push_back(std::make_unique<FlagType>());
    types->push_back(std::make_unique<GroupType>());
}

} // namespace rowtypes
