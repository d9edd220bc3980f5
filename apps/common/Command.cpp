#include "Command.h"

namespace console {

Command::Command(CLI::App &app, const std::string &name, const QString &help)
    : command(app.add_subcommand(name, help.toStdString()))
{
}

Command::~Command() = default;

bool Command::isChosen() const { return command->parsed(); }

void Command::addFile(const std::string &name, std::string &path, const QString &help)
{
    command->add_option(name, path, help.toStdString())->required()->type_name("");
}

} // namespace console
