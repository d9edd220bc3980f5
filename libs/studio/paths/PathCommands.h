#pragma once

#include <studio/CommandTable.h>

namespace studio {

/** The commands for paths, their nodes and their files: a part of `commandTable`. */
QVector<Command> pathCommands();

} // namespace studio
