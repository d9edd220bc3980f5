#include "CommandLine.h"

#include "Console.h"

#include <QtCore/QTextCodec>

#include <iostream>

namespace console {

namespace {

constexpr int kHelpColumn = 36;

void addVersion(CLI::App *command, const CLI::App &app)
{
    command->set_version_flag("--version", app.get_name() + " " ZT_VERSION);
}

/** The name of the command that the arguments choose, the program's if they choose none. */
std::string chosenCommand(const CLI::App &app)
{
    std::string command = app.get_name();
    for (const CLI::App *chosen : app.get_subcommands())
        command += " " + chosen->get_name();
    return command;
}

/** "compile, decompile or info". */
std::string commandList(CLI::App &app)
{
    const std::vector<CLI::App *> commands = app.get_subcommands({});
    std::string list;
    for (size_t i = 0; i < commands.size(); ++i) {
        const bool isLast = i + 1 == commands.size();
        list += (i == 0 ? "" : isLast ? " or " : ", ") + commands[i]->get_name();
    }
    return list;
}

/** What is wrong with the command line, in the programs' words. */
std::string describe(CLI::App &app, const CLI::ParseError &error)
{
    const std::vector<std::string> unknown = app.remaining();
    if (app.get_subcommands().empty())
        return (unknown.empty() ? "a command is missing: "
                                : "unknown command \"" + unknown.front() + "\": ") +
               commandList(app);
    std::string what = error.what();
    const auto kind = static_cast<CLI::ExitCodes>(error.get_exit_code());
    const size_t colon = what.find(':');
    if (kind == CLI::ExitCodes::ExtrasError && colon != std::string::npos)
        return "unknown argument" + what.substr(colon + 1);
    if (kind == CLI::ExitCodes::ArgumentMismatch && colon != std::string::npos)
        return what.substr(0, colon) + ": its value is missing";
    if (kind == CLI::ExitCodes::RequiredError)
        return what.substr(0, what.find(' ')) + " is missing";
    return what;
}

/** Help and version go to stdout; anything else is one line on stderr. */
int endParsing(CLI::App &app, const CLI::ParseError &error)
{
    if (error.get_exit_code() == 0) {
        app.exit(error, std::cout, std::cerr);
        std::cout.flush();
        return finishOutput() ? Done : Failed;
    }
    complain(describe(app, error) + " (see " + chosenCommand(app) + " --help)");
    return WrongUsage;
}

/** Messages meant for developers do not belong between the lines of a command. */
void dropMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        complain(text.toStdString());
}

} // namespace

void makeIndependent()
{
    qInstallMessageHandler(dropMessage);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

std::optional<int> parse(CLI::App &app, int argc, char **argv)
{
    app.require_subcommand(1);
    app.get_formatter()->column_width(kHelpColumn);
    app.footer("Exit codes: 0 done, 1 failed work, 2 wrong usage.\n" + app.get_name() +
               " COMMAND --help tells more about a command.");
    addVersion(&app, app);
    for (CLI::App *command : app.get_subcommands({}))
        addVersion(command, app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return endParsing(app, error);
    }
    return std::nullopt;
}

} // namespace console
