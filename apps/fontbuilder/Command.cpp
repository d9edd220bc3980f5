#include "Command.h"

Command::Command(CLI::App &app, const std::string &name, const std::string &description)
    : command(app.add_subcommand(name, description))
{
}

bool Command::isChosen() const { return command->parsed(); }

void Command::addFile(const std::string &name, std::string &path, const std::string &description)
{
    command->add_option(name, path, description)->required()->type_name("");
}
