#pragma once

#include <common/Command.h>

#include <QtCore/QCoreApplication>

/** `fontbuilder info`: what is in a font file. */
class InfoCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(InfoCommand)

public:
    explicit InfoCommand(CLI::App &app);

    int run() override;

private:
    std::string m_font;
};
