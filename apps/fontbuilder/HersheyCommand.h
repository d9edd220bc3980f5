#pragma once

#include <common/Command.h>

#include <QtCore/QCoreApplication>

/** `fontbuilder hershey`: the regular fonts out of the Hershey data. */
class HersheyCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(HersheyCommand)

public:
    explicit HersheyCommand(CLI::App &app);

    int run() override;

private:
    std::string m_data;
    std::string m_output;
};
