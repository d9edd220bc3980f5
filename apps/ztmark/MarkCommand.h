#pragma once

#include "FontFolders.h"
#include "ForeignFiles.h"
#include "InputFiles.h"
#include "JobArguments.h"

#include <common/Command.h>

class Progress;

/** `ztmark mark`: foreign drawings, or a drawing, become ordered mark paths. */
class MarkCommand final : public console::Command
{
    Q_DECLARE_TR_FUNCTIONS(MarkCommand)

public:
    explicit MarkCommand(CLI::App &app);

    int run() override;

private:
    void checkTogether() const;
    void checkDrawing() const;
    int markDrawing(Progress &progress);
    int markForeignFiles(Progress &progress);
    hostkit::MarkJobResult laidOut(ZTMarkGraph graph) const;
    int finish(bool written, const hostkit::MarkPathMeasure &before,
               const hostkit::MarkPathMeasure &after) const;

    InputFiles m_files;
    JobArguments m_job;
    ForeignFiles m_foreign;
    bool m_marksOutside = false;
    bool m_marksAsShown = false;
    FontFolders m_fonts;
};
