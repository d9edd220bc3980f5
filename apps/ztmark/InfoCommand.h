#pragma once

#include "FontFolders.h"

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

#include <string>

/** `ztmark info`: what is in a file, and what of it is lost. */
class InfoCommand
{
    Q_DECLARE_TR_FUNCTIONS(InfoCommand)

public:
    explicit InfoCommand(CLI::App &app);

    bool isChosen() const; ///< valid after the command line was parsed
    int run();

private:
    int describeDrawing() const;
    int describePlotterFile() const;

    CLI::App *command; ///< owned by the application it was added to
    std::string file;
    FontFolders fonts;
};
