#pragma once

#include "Command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <utility>
#include <vector>

namespace console {

/** The same behaviour on every machine: file names in UTF-8, no messages meant for developers. */
void makeIndependent();

/**
 * The command line of a program whose work is done by subcommands: each is one class, added by one
 * line. Order: with a `QCoreApplication`, after `language::choose`.
 */
class CommandLine
{
public:
    /** `help` says in one sentence what the program does. */
    CommandLine(const std::string &program, const std::string &version, const QString &help);

    /** Adds a subcommand, in the order of the help. */
    template <class Subcommand>
    void add()
    {
        m_commands.push_back(std::make_unique<Subcommand>(m_app));
    }

    /**
     * Parses the arguments, does the work of the command that they choose, and returns the
     * program's exit code: that of the work, `Done` after help or version on stdout, `WrongUsage`
     * after one line on stderr that says what is wrong with the arguments. No exception leaves it.
     */
    int run(int argc, char **argv);

private:
    int work();
    int endParsing(const CLI::ParseError &error);
    void addCommonOptions(CLI::App *command);

    CLI::App m_app;
    std::string m_version; ///< as --version tells it
    std::vector<std::unique_ptr<Command>> m_commands;
};

} // namespace console
