#include <QtPropertyBrowser/QtVariantPropertyManager.h>
#include <QtPropertyBrowser/types/RowTexts_p.h>
#include <QtPropertyBrowser/types/RowType_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QMap>

#include <algorithm>

namespace rowtypes {

namespace {

QLocale locale(const QVariant &value) { return value.toLocale(); }

struct LanguageEntry
{
    QLocale::Language language;
    QString name;
    QVector<QLocale::Country> countries; ///< by name
    QStringList countryNames;
};

/** Every language that Qt knows, by name, with the countries where it is spoken. */
QVector<LanguageEntry> allLanguages()
{
    QMap<QString, QMap<QString, QLocale>> sorted;
    const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    for (const QLocale &each : locales) {
        sorted[QLocale::languageToString(each.language())].insert(
            QLocale::countryToString(each.country()), each);
    }
    QVector<LanguageEntry> entries;
    for (auto it = sorted.cbegin(); it != sorted.cend(); ++it) {
        LanguageEntry entry{it->first().language(), it.key(), {}, it->keys()};
        for (const QLocale &each : *it)
            entry.countries.append(each.country());
        entries.append(entry);
    }
    return entries;
}

const QVector<LanguageEntry> &languages()
{
    static const QVector<LanguageEntry> entries = allLanguages();
    return entries;
}

/** Place of a language in the list, or one past the end. */
int languageIndex(QLocale::Language language)
{
    const auto found =
        std::find_if(languages().cbegin(), languages().cend(),
                     [language](const LanguageEntry &each) { return each.language == language; });
    return int(found - languages().cbegin());
}

LanguageEntry entryOf(const QLocale &held)
{
    const int index = languageIndex(held.language());
    return index < languages().size() ? languages().at(index) : LanguageEntry{};
}

/** The language in the country of `held` where it is spoken there, else in its own. */
QLocale withLanguage(const QLocale &held, const LanguageEntry &entry)
{
    if (entry.countries.contains(held.country()))
        return QLocale(entry.language, held.country());
    return QLocale(entry.language);
}

class LocaleType : public RowType
{
public:
    LocaleType() : RowType(QMetaType::QLocale, QMetaType::QLocale) {}

    QVariant initialValue() const override { return QLocale(); }

    QString text(const QVariant &value, const QVariantMap &) const override
    {
        const QLocale held = locale(value);
        return QStringLiteral("%1, %2").arg(QLocale::languageToString(held.language()),
                                            QLocale::countryToString(held.country()));
    }

    QVector<FieldSpec> fields(const QVariant &value, const QVariantMap &) const override
    {
        QStringList names;
        for (const LanguageEntry &entry : languages())
            names.append(entry.name);
        const int list = QtVariantPropertyManager::enumTypeId();
        return {{QCoreApplication::translate("QtLocalePropertyManager", "Language"),
                 list,
                 {{enumNamesName(), names}}},
                {QCoreApplication::translate("QtLocalePropertyManager", "Country"),
                 list,
                 {{enumNamesName(), entryOf(locale(value)).countryNames}}}};
    }

    bool fieldsFollowValue() const override { return true; }

    QVariant fieldValue(const QVariant &value, int field) const override
    {
        const QLocale held = locale(value);
        if (field == 0)
            return languageIndex(held.language());
        const LanguageEntry entry = entryOf(held);
        const int country = entry.countries.indexOf(held.country());
        return country >= 0 ? country : entry.countries.size();
    }

    QVariant withField(const QVariant &value, int field, const QVariant &part) const override
    {
        const QLocale held = locale(value);
        const int index = part.toInt();
        if (fieldValue(value, field) == part || index < 0)
            return held;
        if (field == 0)
            return index < languages().size() ? withLanguage(held, languages().at(index)) : held;
        const LanguageEntry entry = entryOf(held);
        return index < entry.countries.size() ? QLocale(held.language(), entry.countries.at(index))
                                              : held;
    }
};

} // namespace

void addLocaleType(RowTypes *types) { types->push_back(std::make_unique<LocaleType>()); }

} // namespace rowtypes
