#pragma once

#include <CLI/CLI.hpp>

#include <QtCore/QStringList>

/**
 * The language in which the program speaks: English, or Chinese where the environment asks for it
 * (LC_ALL, LC_MESSAGES and LANG, the first that is set) or `--language zh` does.
 */
namespace language {

/**
 * Chooses the language for the whole process; texts made before stay as they are. `catalogues` are
 * the names of the program's own, "ztmark_zh", which its resources hold.
 *
 * Order: once there is an application, before any text is made.
 */
void choose(int argc, char **argv, const QStringList &catalogues);

/** Adds the option to a command; it is read by `choose`, and here only checked and explained. */
void addOption(CLI::App *command);

} // namespace language
