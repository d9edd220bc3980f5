#include "Command.h"

namespace console {

Command::Command(CLI::App &app, const std::string &name, const QString &help)
    : m_command(app.add_subcommand(name, help.toStdString()))
{
}

Command::~Command() = default;

bool Command::isChosen() const { return m_command->parsed(); }

void Command::addFile(const std::string &name, std::string &path, const QString &help)
{
    m_command->add_option(name, path, help.toStdString())->required()->type_name("");
}

} // namespace console
