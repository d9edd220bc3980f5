#pragma once

#include <common/Command.h>

#include <QtCore/QCoreApplication>

/** `fontbuilder decompile`: the source of a font. */
class DecompileCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(DecompileCommand)

public:
    explicit DecompileCommand(CLI::App &app);

    int run() override;

private:
    std::string m_font;
    std::string m_output = "-";
};
