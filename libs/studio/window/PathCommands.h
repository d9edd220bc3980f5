#pragma once

#include <studio/window/CommandTable.h>

namespace studio {

/** The commands for paths, their nodes and their files: a part of `commandTable`. */
QVector<Command> pathCommands();

} // namespace studio
