#pragma once

#include <CLI/CLI.hpp>

#include <QtCore/QCoreApplication>

#include <string>
#include <vector>

/** The argument FILE of commands that take plotter drawings, or one drawing. */
class InputFiles
{
    Q_DECLARE_TR_FUNCTIONS(InputFiles)

public:
    void addOption(CLI::App *command);

    /** Throws a usage error for a drawing beside other files, and for input that is named twice. */
    void checkTogether() const;

    /** Whether it is one drawing. Order: after `checkTogether`. */
    bool isDrawing() const;

    std::vector<std::string> names; ///< as they were typed, at least one
};
