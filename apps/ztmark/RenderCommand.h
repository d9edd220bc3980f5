#pragma once

#include "FontFolders.h"

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

#include <string>

class OpenedDrawing;

/** `ztmark render`: a picture of a drawing. */
class RenderCommand
{
    Q_DECLARE_TR_FUNCTIONS(RenderCommand)

public:
    explicit RenderCommand(CLI::App &app);

    bool isChosen() const; ///< valid after the command line was parsed
    int run();

private:
    void addOutput();
    void checkTogether() const;
    bool save(OpenedDrawing &drawing, QString *error) const;
    bool asPaths() const;

    CLI::App *command; ///< owned by the application it was added to
    std::string file;
    std::string output;
    int longerSidePx;
    FontFolders fonts;
};
