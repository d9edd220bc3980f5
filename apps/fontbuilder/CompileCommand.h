#pragma once

#include <common/Command.h>

#include <QtCore/QCoreApplication>

/** `fontbuilder compile`: a font from its source. */
class CompileCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(CompileCommand)

public:
    explicit CompileCommand(CLI::App &app);

    int run() override;

private:
    std::string m_source;
    std::string m_output;
};
