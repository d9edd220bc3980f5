#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <string>
#include <vector>

namespace console {

/** One command of a program as its table has it, for pages and scripts that are made from it. */
struct CommandEntry
{
    /** One option or, without dashes, one argument by its place. */
    struct Argument
    {
        std::vector<std::string> names; ///< "-o", "--output"; of a place its name alone
        std::string value;              ///< what the value is called, "LENGTH"; empty for a flag
        std::string standard;           ///< the value when it is not given; empty: none
        std::string help;               ///< one line
        bool takesValue = false;
    };

    std::string call;   ///< "ztmark font list"
    std::string name;   ///< "list"
    std::string help;   ///< one line
    std::string footer; ///< lines as they are shown under the help
    std::vector<Argument> places;
    std::vector<Argument> options;
    std::vector<CommandEntry> parts; ///< the commands below it, in the order of the help
};

/** The table of a program whose commands and options are all added; hidden options left out. */
CommandEntry commandTable(const CLI::App &app);

/** Calls `visit` for the command and, depth first, for all below it. */
void forEachCommand(const CommandEntry &top,
                    const std::function<void(const CommandEntry &)> &visit);

/**
 * Adds the hidden options `--man-page` (the program's manual page, in roff) and `--completion
 * SHELL` (what bash, zsh or fish completes after the program's name). Each prints to stdout and
 * ends the program well, as `--version` does; an unknown shell is wrong usage.
 *
 * Order: after all commands and options. The table is read when one of the two is given.
 */
void addTableOptions(CLI::App *app, const std::string &version);

} // namespace console
