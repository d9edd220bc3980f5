#pragma once

#include "JobArguments.h"

#include <CLI/App.hpp>

#include <memory>
#include <string>
#include <vector>

class Progress;

/** `ztmark mark`: plotter drawings become ordered mark paths. */
class MarkCommand
{
    Q_DECLARE_TR_FUNCTIONS(MarkCommand)

public:
    explicit MarkCommand(CLI::App &app);

    bool isChosen() const; ///< valid after the command line was parsed
    int run();

private:
    using Drawings = std::vector<std::unique_ptr<hostkit::DrawingInput>>;

    void checkTogether() const;
    bool readDrawings(Drawings *drawings, Progress &progress) const;
    bool build(const Drawings &drawings, hostkit::MarkJobResult *result, Progress &progress);
    void warn(const Drawings &drawings, const hostkit::MarkPathMeasure &measure) const;

    CLI::App *command; ///< owned by the application it was added to
    std::vector<std::string> files;
    JobArguments job;
};
