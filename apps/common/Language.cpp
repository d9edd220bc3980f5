#include "Language.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>

#include <map>
#include <string>
#include <string_view>

static void initializeOwnCatalogue() { Q_INIT_RESOURCE(console_zh); }

namespace language {

namespace {

const std::string kOption = "--language";

struct LanguageTexts
{
    Q_DECLARE_TR_FUNCTIONS(Language)
};

const std::map<std::string, bool> kIsChinese{{"en", false}, {"zh", true}};

/** The last value of the option; empty without one. */
std::string_view optionOf(int argc, char **argv)
{
    std::string_view value;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--")
            break;
        if (argument == kOption && i + 1 < argc)
            value = argv[++i];
        else if (argument.substr(0, kOption.size() + 1) == kOption + "=")
            value = argument.substr(kOption.size() + 1);
    }
    return value;
}

/** Language of the environment, for example "zh_CN.UTF-8". */
QByteArray environmentLanguage()
{
    for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        QByteArray value = qgetenv(variable);
        if (!value.isEmpty())
            return value;
    }
    return {};
}

bool wantsChinese(int argc, char **argv)
{
    const auto chosen = kIsChinese.find(std::string(optionOf(argc, argv)));
    if (chosen != kIsChinese.end())
        return chosen->second;
    const QByteArray language = environmentLanguage();
    return language == "zh" || language.startsWith("zh_") || language.startsWith("zh.");
}

void install(const QString &catalogue)
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(catalogue, QStringLiteral(":/")))
        QCoreApplication::installTranslator(translator);
}

} // namespace

void choose(int argc, char **argv, const QStringList &catalogues)
{
    initializeOwnCatalogue();
    if (!wantsChinese(argc, argv))
        return;
    for (const QString &name : QStringList{QStringLiteral("console_zh")} + catalogues)
        install(name);
}

void addOption(CLI::App *command)
{
    const auto take = [](const std::string &text) {
        if (kIsChinese.find(text) == kIsChinese.end())
            throw CLI::ValidationError(kOption, LanguageTexts::tr("\"%1\" is not among the choices")
                                                    .arg(QString::fromStdString(text))
                                                    .toStdString());
    };
    command
        ->add_option_function<std::string>(
            kOption, take,
            LanguageTexts::tr("Language of help and messages, en or zh; else the environment's")
                .toStdString())
        ->take_last()
        ->type_name("LANG");
}

} // namespace language
