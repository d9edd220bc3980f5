#pragma once

#include <CLI/CLI.hpp>

#include <optional>

namespace console {

/** The same behaviour on every machine: file names in UTF-8, no messages meant for developers. */
void makeIndependent();

/**
 * Parses the arguments of a program whose work is done by subcommands, after all of them were
 * added.
 *
 * Gives every command its --version and sees to it that exactly one is chosen. Returns the exit
 * code when the run ends here: after help or version on stdout, or after one line on stderr that
 * says what is wrong with the arguments.
 */
std::optional<int> parse(CLI::App &app, int argc, char **argv);

} // namespace console
