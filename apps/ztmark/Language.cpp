#include "Language.h"

#include "Usage.h"

#include <QtCore/QTranslator>

#include <string_view>

static void initializeCatalogues()
{
    Q_INIT_RESOURCE(ztmark_zh);
    Q_INIT_RESOURCE(hostkit_zh);
    Q_INIT_RESOURCE(vectorkit_zh);
}

namespace language {

namespace {

constexpr std::string_view kOption = "--language";

struct Texts
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
        else if (argument.substr(0, kOption.size() + 1) == std::string(kOption) + "=")
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

void choose(int argc, char **argv)
{
    initializeCatalogues();
    if (!wantsChinese(argc, argv))
        return;
    for (const char *name : {"ZTDrawEngineLib_zh", "hostkit_zh", "vectorkit_zh", "ztmark_zh"})
        install(QLatin1String(name));
}

void addOption(CLI::App *command)
{
    usage::addValue(command, std::string(kOption),
                    Texts::tr("Language of help and messages, en or zh; else the environment's"),
                    [](const std::string &text) { usage::chosen(kIsChinese, text); })
        ->type_name("LANG");
}

} // namespace language
