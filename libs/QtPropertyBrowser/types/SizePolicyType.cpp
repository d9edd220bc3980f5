#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaEnum>
#include <QtWidgets/QSizePolicy>

namespace rowtypes {

namespace {

enum Field { HorizontalPolicy, VerticalPolicy, HorizontalStretch, VerticalStretch };

QSizePolicy policy(const QVariant &value) { return value.value<QSizePolicy>(); }

QMetaEnum policies() { return QMetaEnum::fromType<QSizePolicy::Policy>(); }

QStringList policyNames()
{
    QStringList names;
    for (int i = 0; i < policies().keyCount(); ++i)
        names.append(QString::fromLatin1(policies().key(i)));
    return names;
}

int policyIndex(QSizePolicy::Policy value)
{
    for (int i = 0; i < policies().keyCount(); ++i) {
        if (policies().value(i) == value)
            return i;
    }
    return policies().keyCount();
}

class SizePolicyType : public RowType
{
public:
    SizePolicyType() : RowType(QMetaType::QSizePolicy, QMetaType::QSizePolicy) {}

    QVariant initialValue() const override { return QVariant::fromValue(QSizePolicy()); }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        const QSizePolicy held = policy(value);
        const QStringList names = policyNames();
        return QStringLiteral("[%1, %2, %3, %4]")
            .arg(names.value(policyIndex(held.horizontalPolicy())),
                 names.value(policyIndex(held.verticalPolicy())),
                 numberText(held.horizontalStretch()), numberText(held.verticalStretch()));
    }

    QVector<FieldSpec> fields(const QVariant &, const QVariantMap &) const override
    {
        const auto label = [](const char *text) {
            return QCoreApplication::translate("QtSizePolicyPropertyManager", text);
        };
        const int list = QtVariantPropertyManager::enumTypeId();
        const QVariantMap names{{enumNamesName(), policyNames()}};
        const QVariantMap stretch{{minimumName(), 0}, {maximumName(), 255}};
        return {{label(QT_TRANSLATE_NOOP("QtSizePolicyPropertyManager", "Horizontal Policy")), list,
                 names},
                {label(QT_TRANSLATE_NOOP("QtSizePolicyPropertyManager", "Vertical Policy")), list,
                 names},
                {label(QT_TRANSLATE_NOOP("QtSizePolicyPropertyManager", "Horizontal Stretch")),
                 QMetaType::Int, stretch},
                {label(QT_TRANSLATE_NOOP("QtSizePolicyPropertyManager", "Vertical Stretch")),
                 QMetaType::Int, stretch}};
    }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        const QSizePolicy held = policy(value);
        switch (field) {
        case HorizontalPolicy:
            return policyIndex(held.horizontalPolicy());
        case VerticalPolicy:
            return policyIndex(held.verticalPolicy());
        case HorizontalStretch:
            return held.horizontalStretch();
        default:
            return held.verticalStretch();
        }
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        QSizePolicy edited = policy(value);
        const int entered = part.toInt();
        const bool isPolicy = field == HorizontalPolicy || field == VerticalPolicy;
        if (isPolicy && (entered < 0 || entered >= policies().keyCount()))
            return value;
        switch (field) {
        case HorizontalPolicy:
            edited.setHorizontalPolicy(QSizePolicy::Policy(policies().value(entered)));
            break;
        case VerticalPolicy:
            edited.setVerticalPolicy(QSizePolicy::Policy(policies().value(entered)));
            break;
        case HorizontalStretch:
            edited.setHorizontalStretch(qBound(0, entered, 255));
            break;
        default:
            edited.setVerticalStretch(qBound(0, entered, 255));
        }
        return QVariant::fromValue(edited);
    }
};

} // namespace

void addSizePolicyType(RowTypes *types) { types->push_back(std::make_unique<SizePolicyType>()); }

} // namespace rowtypes
