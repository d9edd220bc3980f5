#pragma once

#include <hostkit/MarkJob.h>

#include <CLI/App.hpp>

#include <memory>
#include <string>
#include <vector>

class Progress;

/** `ztmark mark`: plotter drawings become ordered mark paths. */
class MarkCommand
{
public:
    explicit MarkCommand(CLI::App &app);

    bool isChosen() const; ///< valid after the command line was parsed
    int run();

private:
    using Drawings = std::vector<std::unique_ptr<hostkit::DrawingInput>>;

    void addFiles();
    void addHatch();
    void addLayout();
    void checkTogether() const;
    bool checkOutputs() const;
    bool readDrawings(Drawings *drawings, Progress &progress) const;
    bool build(const Drawings &drawings, hostkit::MarkJobResult *result, Progress &progress);
    bool writeOutputs(const ZTMarkGraph &graph, Progress &progress) const;
    void warn(const Drawings &drawings, const hostkit::MarkPathMeasure &measure) const;
    void printSummary(const hostkit::MarkJobResult &result) const;

    CLI::App *command; ///< owned by the application it was added to
    std::vector<std::string> files;
    std::vector<std::string> outputs;
    hostkit::MarkJobOptions options;
    bool quiet = false;
};
