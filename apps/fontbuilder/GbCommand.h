#pragma once

#include "Command.h"

/** `fontbuilder gb`: the Chinese big font out of stroke medians. */
class GbCommand : public Command
{
public:
    explicit GbCommand(CLI::App &app);

    int run() override;

private:
    std::string data;
    std::string hershey = "/usr/share/hershey-fonts";
    std::string output;
};
