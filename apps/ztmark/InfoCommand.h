#pragma once

#include "FontFolders.h"
#include "InputFiles.h"

#include <common/Command.h>

#include <QtCore/QCoreApplication>

class Progress;

/** `ztmark info`: what is in a file, and what of it is lost. */
class InfoCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(InfoCommand)

public:
    explicit InfoCommand(CLI::App &app);

    int run() override;

private:
    int describeDrawing(Progress &progress) const;

    InputFiles m_files;
    FontFolders m_fonts;
};
