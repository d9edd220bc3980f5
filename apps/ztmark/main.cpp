#include "Console.h"
#include "InfoCommand.h"
#include "MarkCommand.h"

#include <hostkit/Factories.h>

#include <CLI/CLI.hpp>

#include <QtCore/QTextCodec>
#include <QtWidgets/QApplication>

#include <iostream>

namespace {

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

void addVersion(CLI::App *app) { app->set_version_flag("--version", "ztmark " ZT_VERSION); }

/** The name of the command that the arguments choose, "ztmark" if they choose none. */
std::string chosenCommand(const CLI::App &app)
{
    std::string command = app.get_name();
    for (const CLI::App *chosen : app.get_subcommands())
        command += " " + chosen->get_name();
    return command;
}

/** What is wrong with the command line, in this program's words. */
std::string describe(const CLI::App &app, const CLI::ParseError &error)
{
    const std::vector<std::string> unknown = app.remaining();
    if (app.get_subcommands().empty())
        return unknown.empty() ? "a command is missing: mark or info"
                               : "unknown command \"" + unknown.front() + "\": mark or info";
    std::string what = error.what();
    const auto kind = static_cast<CLI::ExitCodes>(error.get_exit_code());
    const size_t colon = what.find(':');
    if (kind == CLI::ExitCodes::ExtrasError && colon != std::string::npos)
        return "unknown argument" + what.substr(colon + 1);
    if (kind == CLI::ExitCodes::ArgumentMismatch && colon != std::string::npos)
        return what.substr(0, colon) + ": its value is missing";
    if (kind == CLI::ExitCodes::RequiredError)
        return "FILE is missing";
    return what;
}

/** Help and version go to stdout; anything else is one line on stderr. */
int endParsing(const CLI::App &app, const CLI::ParseError &error)
{
    if (error.get_exit_code() == 0) {
        app.exit(error, std::cout, std::cerr);
        std::cout.flush();
        return console::finishOutput() ? console::Done : console::Failed;
    }
    console::complain(describe(app, error) + " (see " + chosenCommand(app) + " --help)");
    return console::WrongUsage;
}

} // namespace

int main(int argc, char **argv)
{
    CLI::App app("Turns plotter drawings into hatched, ordered mark paths.", "ztmark");
    app.require_subcommand(1);
    app.get_formatter()->column_width(36);
    app.footer("Exit codes: 0 done, 1 failed work, 2 wrong usage.\n"
               "ztmark COMMAND --help tells more about a command.");
    MarkCommand mark(app);
    InfoCommand info(app);
    addVersion(&app);
    for (CLI::App *command : app.get_subcommands({}))
        addVersion(command);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return endParsing(app, error);
    }

    makeIndependent();
    int onlyName = 1;
    const QApplication application(onlyName, argv);
    hostkit::registerFactories();
    return info.isChosen() ? info.run() : mark.run();
}
