#pragma once

#include "Command.h"

/** `fontbuilder compile`: a font from its source. */
class CompileCommand : public Command
{
public:
    explicit CompileCommand(CLI::App &app);

    int run() override;

private:
    std::string source;
    std::string output;
};
