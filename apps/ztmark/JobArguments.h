#pragma once

#include <hostkit/files/Failure.h>
#include <hostkit/marks/MarkJob.h>

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

#include <string>
#include <vector>

class Progress;

/** What all commands that make mark paths share: hatch, layout, outputs and the summary. */
class JobArguments
{
    Q_DECLARE_TR_FUNCTIONS(JobArguments)

public:
    explicit JobArguments(CLI::App *command);

    void addOutputs();
    void addHatch();
    void addLayout();
    void addGap();
    void addScale();
    void addRotate();

    /** Throws a usage error for switches that none of the outputs obeys. */
    void checkOutputs() const;

    /** Throws a usage error for options that contradict each other. */
    void checkTogether() const;

    /** Names of files that the marks are made of, and that no output may replace. */
    struct Inputs
    {
        std::vector<std::string> drawings;
        std::vector<std::string> others; ///< lists that texts read, pens, a profile
    };

    /** Finds what would fail in the end, or destroy an input, before the work begins. */
    static bool canWrite(const std::vector<std::string> &outputNames, const Inputs &inputs);

    /** Writes the paths; a file that fails does not keep the others from being written. */
    bool write(const ZTMarkGraph &graph, const std::vector<std::string> &outputNames,
               Progress &progress,
               const hostkit::MarkUnits &units = hostkit::MarkUnits::current()) const;

    /** The outputs of part `part` of `parts`: of several, the number stands before the extension.
     */
    std::vector<std::string> outputsOfPart(int part, int parts) const;
    static std::string outputOfPart(std::string output, int part, int parts);

    void warnOfEmptyHatch(const hostkit::MarkPathMeasure &measure) const;
    static void printSummary(const hostkit::MarkPathMeasure &before,
                             const hostkit::MarkPathMeasure &after);

    /** A line of a summary. */
    static void printRow(const QString &name, const QString &value);

    hostkit::MarkJobOptions options;
    std::vector<std::string> outputs;
    bool quiet = false;

private:
    bool save(const ZTMarkGraph &graph, const hostkit::MarkUnits &units, const QString &path,
              hostkit::Failure *failure) const;

    CLI::App *m_command; ///< owned by the application it was added to
    bool m_marksOnly = false;
    bool m_noJumps = false;
    bool m_arrows = false;
    bool m_noBackground = false;
};
