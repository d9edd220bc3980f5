#include <studio/program/Language.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QSettings>
#include <QtCore/QTranslator>

// In no namespace, as the macro demands. Without it a linker drops the resources of a static
// library.
static void initializeCatalogues()
{
    Q_INIT_RESOURCE(studio_zh);
    Q_INIT_RESOURCE(hostkit_zh);
    Q_INIT_RESOURCE(vectorkit_zh);
    Q_INIT_RESOURCE(codekit_zh);
    Q_INIT_RESOURCE(jobkit_zh);
}

namespace studio {

namespace {

const QString kLanguageKey = QStringLiteral("window/language");

/** A choice as it is stored; the system's language is stored as no choice. */
QString keyOf(LanguageChoice choice)
{
    switch (choice) {
    case LanguageChoice::English:
        return QStringLiteral("en");
    case LanguageChoice::Chinese:
        return QStringLiteral("zh");
    case LanguageChoice::System:
        break;
    }
    return {};
}

LanguageChoice rememberedChoice()
{
    const QString key = QSettings().value(kLanguageKey).toString();
    for (const LanguageChoice choice : {LanguageChoice::English, LanguageChoice::Chinese}) {
        if (key == keyOf(choice))
            return choice;
    }
    return LanguageChoice::System;
}

bool isSystemChinese()
{
    const QStringList languages = QLocale::system().uiLanguages();
    return !languages.isEmpty() && QLocale(languages.first()).language() == QLocale::Chinese;
}

/** Of the process, as the catalogues are. */
bool areTextsChinese = false;

} // namespace

Language::Language() : m_chosen(rememberedChoice())
{
    initializeCatalogues();
    apply();
}

Language::~Language() { areTextsChinese = false; }

void Language::choose(LanguageChoice choice)
{
    m_chosen = choice;
    if (choice == LanguageChoice::System)
        QSettings().remove(kLanguageKey);
    else
        QSettings().setValue(kLanguageKey, keyOf(choice));
    apply();
}

void Language::apply()
{
    const bool wantsChinese = m_chosen == LanguageChoice::Chinese ||
                              (m_chosen == LanguageChoice::System && isSystemChinese());
    if (wantsChinese == m_isChinese)
        return;
    m_isChinese = wantsChinese;
    areTextsChinese = wantsChinese;
    // A catalogue that goes uninstalls itself.
    m_catalogues.clear();
    if (!m_isChinese)
        return;
    load(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    load(QStringLiteral("ZTDrawEngineLib_zh"), QStringLiteral(":/"));
    load(QStringLiteral("hostkit_zh"), QStringLiteral(":/"));
    load(QStringLiteral("vectorkit_zh"), QStringLiteral(":/"));
    load(QStringLiteral("codekit_zh"), QStringLiteral(":/"));
    load(QStringLiteral("jobkit_zh"), QStringLiteral(":/"));
    load(QStringLiteral("studio_zh"), QStringLiteral(":/"));
}

QLocale textLocale()
{
    const QLocale own;
    if ((own.language() == QLocale::Chinese) == areTextsChinese)
        return own;
    return areTextsChinese ? QLocale(QLocale::Chinese, QLocale::China)
                           : QLocale(QLocale::English, QLocale::UnitedStates);
}

void Language::load(const QString &name, const QString &folder)
{
    auto catalogue = std::make_unique<QTranslator>();
    if (!catalogue->load(name, folder))
        return;
    QCoreApplication::installTranslator(catalogue.get());
    m_catalogues.push_back(std::move(catalogue));
}

} // namespace studio
