#pragma once

#include <CLI/App.hpp>

#include <optional>

namespace console {

/**
 * Parses the arguments of a program whose work is done by subcommands, after all of them were
 * added.
 *
 * Gives every command its --version, sees to it that exactly one is chosen, and from then on
 * complaints carry the program's name. Returns the exit code when the run ends here: after help or
 * version on stdout, or after one line on stderr that says what is wrong with the arguments.
 */
std::optional<int> parse(CLI::App &app, int argc, char **argv);

} // namespace console
