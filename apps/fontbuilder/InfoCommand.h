#pragma once

#include "Command.h"

/** `fontbuilder info`: what is in a font file. */
class InfoCommand : public Command
{
public:
    explicit InfoCommand(CLI::App &app);

    int run() override;

private:
    std::string font;
};
