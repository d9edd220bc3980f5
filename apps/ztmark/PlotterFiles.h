#pragma once

#include <hostkit/marks/DrawingInput.h>

#include <QtCore/QCoreApplication>

#include <memory>
#include <string>
#include <vector>

class Progress;

/** Plotter drawings that a command takes, and what is told of them on stderr. */
class PlotterFiles
{
    Q_DECLARE_TR_FUNCTIONS(PlotterFiles)

public:
    using Drawings = std::vector<std::unique_ptr<hostkit::DrawingInput>>;

    /** Reads all; false, told on stderr, for the first one that cannot be drawn. */
    bool open(const std::vector<std::string> &files, Progress &progress);

    /** Warns of those that lose something. */
    void warnOfLosses() const;

    const Drawings &drawings() const { return m_opened; }

private:
    std::vector<std::string> m_names;
    Drawings m_opened;
};
