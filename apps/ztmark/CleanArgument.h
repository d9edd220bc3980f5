#pragma once

#include <vectorkit/clean/DrawingCleaning.h>

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

/** The option --clean: what is mended in foreign drawings before they come in. */
class CleanArgument
{
    Q_DECLARE_TR_FUNCTIONS(CleanArgument)

public:
    void addOption(CLI::App *command);

    /** Whether anything is to be mended. */
    bool isAsked() const { return m_isAsked; }

    /** Cleans a drawing; curves that must be cut stay within `toleranceMm`. */
    vectorkit::CleanReport clean(vectorkit::VectorDrawing *drawing, double toleranceMm) const;

    /** What was done, one line: "12 ends joined, 3 outlines closed; 40 paths became 5". */
    static QString describe(const vectorkit::CleanReport &report);

    /** What `ztmark info` says cleaning would mend; "nothing" where the drawing is clean. */
    static QString describeNeeds(const vectorkit::VectorDrawing &drawing);

private:
    void take(const std::string &text);
    void takePart(const std::string &key, const std::string &value, const std::string &all);

    vectorkit::CleanOptions m_options;
    bool m_isAsked = false;
};
