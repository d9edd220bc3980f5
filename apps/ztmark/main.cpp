#include "Console.h"
#include "ConvertCommand.h"
#include "FontCommand.h"
#include "InfoCommand.h"
#include "Language.h"
#include "MarkCommand.h"
#include "RenderCommand.h"
#include "TextCommand.h"

#include <hostkit/setup/Factories.h>

#include <CLI/CLI.hpp>

#include <QtCore/QTextCodec>
#include <QtWidgets/QApplication>

#include <iostream>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ztmark)
};

/** Messages meant for developers do not belong between the lines of a command. */
void dropMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        console::complain(text.toStdString());
}

/** The same behaviour on every machine: no display, no locale, file names in UTF-8. */
void makeIndependent()
{
    qInstallMessageHandler(dropMessage);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

/** What the library for arguments says by itself, in this program's language. */
void translateFormatter(CLI::App &app)
{
    CLI::FormatterBase &formatter = *app.get_formatter();
    formatter.column_width(36);
    formatter.label("Usage", Texts::tr("Usage").toStdString());
    formatter.label("Positionals", Texts::tr("Positionals").toStdString());
    formatter.label("REQUIRED", Texts::tr("REQUIRED").toStdString());
    formatter.label("OPTIONS", Texts::tr("OPTIONS").toStdString());
    formatter.label("SUBCOMMAND", Texts::tr("SUBCOMMAND").toStdString());
}

/** Options that every command has. */
void addCommonOptions(CLI::App *command)
{
    command->set_help_flag("-h,--help",
                           Texts::tr("Print this help message and exit").toStdString());
    command->set_version_flag(
        "--version", "ztmark " ZT_VERSION,
        Texts::tr("Display program version information and exit").toStdString());
    language::addOption(command);
    // Groups are headings of the help.
    for (CLI::Option *option :
         command->get_options([](const CLI::Option *added) { return !added->get_positional(); }))
        option->group(Texts::tr("Options").toStdString());
    command->group(Texts::tr("Subcommands").toStdString());
    for (CLI::App *part : command->get_subcommands({}))
        addCommonOptions(part);
}

/** The command that the arguments choose, down to its last part. */
const CLI::App &chosenCommand(const CLI::App &app)
{
    const std::vector<CLI::App *> chosen = app.get_subcommands();
    return chosen.empty() ? app : chosenCommand(*chosen.front());
}

/** "ztmark font list": how a command is called. */
std::string callOf(const CLI::App &app)
{
    const CLI::App *parent = app.get_parent();
    return parent != nullptr ? callOf(*parent) + " " + app.get_name() : app.get_name();
}

/** "mark, info, text or font" */
QString partsOf(const CLI::App &app)
{
    QStringList names;
    for (const CLI::App *part : app.get_subcommands([](const CLI::App *) { return true; }))
        names << QString::fromStdString(part->get_name());
    const QString last = names.takeLast();
    return Texts::tr("%1 or %2").arg(names.join(Texts::tr(", ")), last);
}

/** What follows the last colon and blank, or what stands before the first colon. */
QString part(const std::string &what, bool behindColon)
{
    const QString text = QString::fromStdString(what);
    return behindColon ? text.section(QStringLiteral(": "), 1)
                       : text.section(QLatin1Char(':'), 0, 0);
}

/** What is wrong with the command line, in this program's words. */
QString describe(const CLI::App &app, const CLI::ParseError &error)
{
    const CLI::App &command = chosenCommand(app);
    if (!command.get_subcommands([](const CLI::App *) { return true; }).empty()) {
        const std::vector<std::string> unknown = command.remaining();
        if (unknown.empty())
            return Texts::tr("a command is missing: %1").arg(partsOf(command));
        return Texts::tr("unknown command \"%1\": %2")
            .arg(QString::fromStdString(unknown.front()), partsOf(command));
    }
    const std::string what = error.what();
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::ExtrasError:
        return Texts::tr("unknown argument %1").arg(part(what, true));
    case CLI::ExitCodes::ArgumentMismatch:
        return Texts::tr("%1: its value is missing").arg(part(what, false));
    case CLI::ExitCodes::RequiredError:
        return Texts::tr("%1 is missing")
            .arg(QString::fromStdString(what.substr(0, what.find(' '))));
    default:
        return QString::fromStdString(what);
    }
}

/** Help and version go to stdout; anything else is one line on stderr. */
int endParsing(const CLI::App &app, const CLI::ParseError &error)
{
    if (error.get_exit_code() == 0) {
        app.exit(error, std::cout, std::cerr);
        std::cout.flush();
        return console::finishOutput() ? console::Done : console::Failed;
    }
    const QString help = QString::fromStdString(callOf(chosenCommand(app)));
    console::complain(
        Texts::tr("%1 (see %2 --help)").arg(describe(app, error), help).toStdString());
    return console::WrongUsage;
}

} // namespace

int main(int argc, char **argv)
{
    makeIndependent();
    int onlyName = 1;
    const QApplication application(onlyName, argv);
    language::choose(argc, argv);

    CLI::App app(
        Texts::tr("Turns drawings, plotter drawings and texts into hatched, ordered mark paths.")
            .toStdString(),
        "ztmark");
    app.require_subcommand(1);
    translateFormatter(app);
    MarkCommand mark(app);
    TextCommand text(app);
    FontCommand font(app);
    InfoCommand info(app);
    RenderCommand render(app);
    ConvertCommand convert(app);
    addCommonOptions(&app);
    app.footer(Texts::tr("Exit codes: 0 done, 1 failed work, 2 wrong usage.\n"
                         "ztmark COMMAND --help tells more about a command.")
                   .toStdString());
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return endParsing(app, error);
    }

    hostkit::registerFactories();
    if (text.isChosen())
        return text.run();
    if (font.isChosen())
        return font.run();
    if (render.isChosen())
        return render.run();
    if (convert.isChosen())
        return convert.run();
    return info.isChosen() ? info.run() : mark.run();
}
