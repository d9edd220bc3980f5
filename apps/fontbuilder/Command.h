#pragma once

#include <CLI/CLI.hpp>

#include <string>

/** One subcommand of fontbuilder: its options and its work. */
class Command
{
public:
    Command(CLI::App &app, const std::string &name, const std::string &description);
    virtual ~Command() = default;
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    bool isChosen() const; ///< valid after the command line was parsed

    /** Does the work; returns the exit code. */
    virtual int run() = 0;

protected:
    /** A file that has to be given by its place among the arguments. */
    void addFile(const std::string &name, std::string &path, const std::string &description);

    CLI::App *const command; ///< owned by the application it was added to
};
