#pragma once

#include "Command.h"

/** `fontbuilder hershey`: the regular fonts out of the Hershey data. */
class HersheyCommand : public Command
{
public:
    explicit HersheyCommand(CLI::App &app);

    int run() override;

private:
    std::string data;
    std::string output;
};
