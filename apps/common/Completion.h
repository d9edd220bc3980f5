#pragma once

#include "CommandTable.h"

namespace console {

/**
 * The script by which a shell, "bash", "zsh" or "fish", completes the commands and options of a
 * program; after an option that takes a value, and where neither fits, it completes files. Empty
 * for another shell.
 */
std::string completion(const CommandEntry &program, const std::string &shell);

} // namespace console
