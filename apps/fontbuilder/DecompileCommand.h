#pragma once

#include "Command.h"

/** `fontbuilder decompile`: the source of a font. */
class DecompileCommand : public Command
{
public:
    explicit DecompileCommand(CLI::App &app);

    int run() override;

private:
    std::string font;
    std::string output = "-";
};
