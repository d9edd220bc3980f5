#pragma once

#include <studio/CommandTable.h>

namespace studio {

/** The commands of Arrange, Paths: a part of `commandTable`. */
QVector<Command> pathCommands();

} // namespace studio
