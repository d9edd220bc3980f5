#pragma once

#include "FontFolders.h"
#include "ForeignFiles.h"
#include "OpenedDrawing.h"

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

#include <string>
#include <vector>

class PlotterFiles;

/** `ztmark convert`: plotter drawings become a drawing, or a drawing is saved anew. */
class ConvertCommand
{
    Q_DECLARE_TR_FUNCTIONS(ConvertCommand)

public:
    explicit ConvertCommand(CLI::App &app);

    bool isChosen() const; ///< valid after the command line was parsed
    int run();

private:
    void addOutput();
    void checkTogether() const;
    int importFiles(Progress &progress) const;
    int importForeignFiles(Progress &progress);
    int saveAnew(Progress &progress) const;
    void import(const PlotterFiles &plotter, ZTGraphicsDocument &document) const;
    int save(ZTGraphicsDocument &document, Progress &progress) const;

    CLI::App *command; ///< owned by the application it was added to
    std::vector<std::string> files;
    std::string output;
    ForeignFiles foreign;
    FontFolders fonts;
};
