#pragma once

#include <CLI/CLI.hpp>

#include <QtCore/QString>

#include <string>

namespace console {

/** One subcommand of a program: its options and its work. */
class Command
{
public:
    /** `help` is one sentence in the language of the program. */
    Command(CLI::App &app, const std::string &name, const QString &help);
    virtual ~Command();
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    bool isChosen() const; ///< valid after the command line was parsed

    /** Does the work; returns an `ExitCode`. What went wrong it has told on stderr. */
    virtual int run() = 0;

protected:
    /** A file that has to be given by its place among the arguments. */
    void addFile(const std::string &name, std::string &path, const QString &help);

    CLI::App *const m_command; ///< owned by the application it was added to
};

} // namespace console
