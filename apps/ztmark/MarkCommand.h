#pragma once

#include "FontFolders.h"
#include "JobArguments.h"
#include "PlotterFiles.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

class Progress;

/** `ztmark mark`: plotter drawings, or a drawing, become ordered mark paths. */
class MarkCommand
{
    Q_DECLARE_TR_FUNCTIONS(MarkCommand)

public:
    explicit MarkCommand(CLI::App &app);

    bool isChosen() const; ///< valid after the command line was parsed
    int run();

private:
    void checkTogether() const;
    void checkDrawing() const;
    int markPlotterFiles(Progress &progress);
    int markDrawing(Progress &progress);
    bool build(const PlotterFiles::Drawings &drawings, hostkit::MarkJobResult *result,
               Progress &progress);
    int finish(bool written, const hostkit::MarkPathMeasure &before,
               const hostkit::MarkPathMeasure &after) const;

    CLI::App *command; ///< owned by the application it was added to
    std::vector<std::string> files;
    JobArguments job;
    bool marksOutside = false;
    FontFolders fonts;
};
