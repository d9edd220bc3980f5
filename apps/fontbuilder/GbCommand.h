#pragma once

#include <common/Command.h>

#include <QtCore/QCoreApplication>

/** `fontbuilder gb`: the Chinese big font out of stroke medians. */
class GbCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(GbCommand)

public:
    explicit GbCommand(CLI::App &app);

    int run() override;

private:
    std::string m_data;
    std::string m_hershey = "/usr/share/hershey-fonts";
    std::string m_output;
};
