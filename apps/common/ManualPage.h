#pragma once

#include "CommandTable.h"

namespace console {

/** The manual page (section 1) of a program, in roff and UTF-8, in the language of the help. */
std::string manualPage(const CommandEntry &program, const std::string &version);

} // namespace console
