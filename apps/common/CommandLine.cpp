#include "CommandLine.h"

#include "CommandTable.h"
#include "Console.h"
#include "Language.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtCore/QTextCodec>

#include <algorithm>
#include <iostream>
#include <memory>
#include <new>
#include <utility>

namespace console {

namespace {

constexpr int kHelpColumn = 36;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

/** The help without the gap that a group of hidden options leaves. */
class HelpFormatter : public CLI::Formatter
{
public:
    std::string make_help(const CLI::App *app, std::string name,
                          CLI::AppFormatMode mode) const override
    {
        std::string help = CLI::Formatter::make_help(app, std::move(name), mode);
        const std::size_t gap = help.find("\n\n\n");
        return gap == std::string::npos ? help : help.erase(gap, 1);
    }
};

/** What the library for arguments says by itself in its help, in the program's language. */
void translateFormatter(CLI::App &app)
{
    CLI::FormatterBase &formatter = *app.get_formatter();
    formatter.column_width(kHelpColumn);
    formatter.label("Usage", Texts::tr("Usage").toStdString());
    formatter.label("Positionals", Texts::tr("Positionals").toStdString());
    formatter.label("REQUIRED", Texts::tr("REQUIRED").toStdString());
    formatter.label("OPTIONS", Texts::tr("OPTIONS").toStdString());
    formatter.label("SUBCOMMAND", Texts::tr("SUBCOMMAND").toStdString());
}

bool hasParts(const CLI::App &app)
{
    return !app.get_subcommands([](const CLI::App *) { return true; }).empty();
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

/** What is wrong with a command that is missing or unknown. */
QString describeChoice(const CLI::App &command)
{
    const std::vector<std::string> unknown = command.remaining();
    if (unknown.empty())
        return Texts::tr("a command is missing: %1").arg(partsOf(command));
    return Texts::tr("unknown command \"%1\": %2")
        .arg(QString::fromStdString(unknown.front()), partsOf(command));
}

/** What is wrong with the command line, in the program's words. */
QString describe(const CLI::App &app, const CLI::ParseError &error)
{
    const CLI::App &command = chosenCommand(app);
    const auto code = static_cast<CLI::ExitCodes>(error.get_exit_code());
    if (hasParts(command) && code != CLI::ExitCodes::ValidationError)
        return describeChoice(command);
    QString what = QString::fromStdString(error.what());
    const QString beforeColon = what.section(QLatin1Char(':'), 0, 0);
    switch (code) {
    case CLI::ExitCodes::ExtrasError:
        return Texts::tr("unknown argument %1").arg(what.section(QStringLiteral(": "), 1));
    case CLI::ExitCodes::ArgumentMismatch:
        return Texts::tr("%1: its value is missing").arg(beforeColon);
    case CLI::ExitCodes::RequiredError:
        return Texts::tr("%1 is missing").arg(what.section(QLatin1Char(' '), 0, 0));
    case CLI::ExitCodes::ValidationError: // the commands' own words
        return what;
    default: // a flag with a value that is none
        return Texts::tr("an option has a value that it does not take");
    }
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

CommandLine::CommandLine(const std::string &program, const std::string &number, const QString &help)
    : m_app(help.toStdString(), program), m_version(program + " " + number)
{
    m_app.require_subcommand(1);
    m_app.formatter(std::make_shared<HelpFormatter>());
    translateFormatter(m_app);
}

int CommandLine::run(int argc, char **argv)
{
    // Last: commands that are added later would take it over.
    m_app.footer(Texts::tr("Exit codes: 0 done, 1 failed work, 2 wrong usage.\n"
                           "%1 COMMAND --help tells more about a command.")
                     .arg(QString::fromStdString(m_app.get_name()))
                     .toStdString());
    addCommonOptions(&m_app);
    addTableOptions(&m_app, m_version);
    try {
        m_app.parse(argc, argv);
        return work();
    } catch (const CLI::ParseError &error) {
        return endParsing(error);
    } catch (const std::bad_alloc &) {
        complain(Texts::tr("there is not enough memory").toStdString());
    } catch (const std::exception &error) {
        complain(error.what());
    }
    return Failed;
}

int CommandLine::work()
{
    const auto chosen = std::find_if(m_commands.begin(), m_commands.end(),
                                     [](const auto &command) { return command->isChosen(); });
    return (*chosen)->run();
}

/** Help and version go to stdout; anything else is one line on stderr. */
int CommandLine::endParsing(const CLI::ParseError &error)
{
    if (error.get_exit_code() == 0) {
        m_app.exit(error, std::cout, std::cerr);
        std::cout.flush();
        return finishOutput() ? Done : Failed;
    }
    const QString help = QString::fromStdString(callOf(chosenCommand(m_app)));
    complain(Texts::tr("%1 (see %2 --help)").arg(describe(m_app, error), help).toStdString());
    return WrongUsage;
}

/** Options that every command has. */
void CommandLine::addCommonOptions(CLI::App *command)
{
    command->set_help_flag("-h,--help",
                           Texts::tr("Print this help message and exit").toStdString());
    command->set_version_flag(
        "--version", m_version,
        Texts::tr("Display program version information and exit").toStdString());
    language::addOption(command);
    // Groups are headings of the help.
    for (CLI::Option *option :
         command->get_options([](const CLI::Option *added) { return !added->get_positional(); }))
        option->group(Texts::tr("Options").toStdString());
    command->group(Texts::tr("Subcommands").toStdString());
    for (CLI::App *part : command->get_subcommands([](CLI::App *) { return true; }))
        addCommonOptions(part);
}

} // namespace console
