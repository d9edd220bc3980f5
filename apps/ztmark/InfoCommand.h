#pragma once

#include "FontFolders.h"

#include <common/Command.h>

#include <QtCore/QCoreApplication>

#include <string>

/** `ztmark info`: what is in a file, and what of it is lost. */
class InfoCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(InfoCommand)

public:
    explicit InfoCommand(CLI::App &app);

    int run() override;

private:
    int describeDrawing() const;
    int describePlotterFile() const;

    std::string m_file;
    FontFolders m_fonts;
};
